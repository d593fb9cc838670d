#pragma once

#include "streams/basic/MStream.h"

/// Passes everything on to its source, which it does not own: the base for filters that change only part of
/// the traffic.
class MDispatchStream : public MStream {
public:
    explicit MDispatchStream(MStream* source = nullptr) : source(source) {}

    void Write(const void* block, int32_t size) override { source->Write(block, size); }
    int32_t Read(void* block, int32_t size) override { return source->Read(block, size); }
    void Seek(int64_t offset, MSeekOrigin origin) override { source->Seek(offset, origin); }
    int64_t GetPosition() override { return source->GetPosition(); }
    void Flush() override { source->Flush(); }
    bool IsEnd() override { return source->IsEnd(); }
    int64_t GetSize() override { return source->GetSize(); }
    bool IsOpen() override { return source != nullptr; }

protected:
    MStream* source;
};
