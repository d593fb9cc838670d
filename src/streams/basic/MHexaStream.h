#pragma once

#include "streams/basic/MDispatchStream.h"

/// Bytes seen through a hexadecimal text: each byte is two digits of the source, high nibble first.
/// `Seek` is passed on as it stands, so it counts digits; position and size count bytes.
class MHexaStream : public MDispatchStream {
public:
    using MDispatchStream::MDispatchStream;

    /// Writes upper-case digits.
    void Write(const void* block, int32_t size) override;
    /// Raises "Invalid character to be converted to a number." (0).
    int32_t Read(void* block, int32_t size) override;
    int64_t GetPosition() override { return source->GetPosition() / 2; }
    int64_t GetSize() override { return source->GetSize() / 2; }
};
