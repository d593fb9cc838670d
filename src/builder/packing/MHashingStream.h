#pragma once

#include "streams/basic/MDispatchStream.h"
#include "streams/hashes/MMD5Stream.h"

/// Passes on what is written, and takes its MD5 on the way.
class MHashingStream final : public MDispatchStream {
public:
    using MDispatchStream::MDispatchStream;

    void Write(const void* block, int32_t size) override {
        MDispatchStream::Write(block, size);
        hash.Write(block, size);
    }
    /// Ends the hash, and gives it as 32 upper-case hexadecimal digits.
    [[nodiscard]] MString GetDigestText() {
        hash.Finish();
        return hash.GetDigestText();
    }

private:
    MMD5Stream hash;
};
