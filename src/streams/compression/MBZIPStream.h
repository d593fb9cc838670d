#pragma once

#include "streams/basic/MStream.h"

#include <memory>

/// Decompresses a bzip2 stream that is read from its source. The source belongs to the caller, and is read
/// beyond the compressed data: each member of a payload is given a window of its own.
/// The stream is sought forward only, by reading.
class MBZIPStream : public MStream {
public:
    MBZIPStream();
    MBZIPStream(const MBZIPStream&) = delete;
    MBZIPStream& operator=(const MBZIPStream&) = delete;
    ~MBZIPStream() override;

    /// Closes first. A null source leaves the stream closed. Raises "Could not initialize inflating."
    /// (0x101).
    void Open(MStream* newSource);
    bool IsOpen() override { return source != nullptr; }
    virtual void Close();
    /// There is no compressing side: raises "Data could not be compressed." (0).
    virtual void Finish();

    MStream* GetSubStream() override { return source; }
    /// There is no compressing side: raises "Data could not be compressed." (0x100).
    void Write(const void* block, int32_t size) override;
    /// Short only at the end of the compressed data.
    /// Raises "Source compressed stream has invalid content." (0x100) if they are corrupt or cut off.
    int32_t Read(void* block, int32_t size) override;
    /// The count of plain bytes that have passed.
    int64_t GetPosition() override { return plainCount; }
    void Flush() override;
    /// True once a read has come to the end of the compressed data.
    bool IsEnd() override { return isEndReached; }

private:
    static constexpr int32_t InputAreaSize = 4096;
    struct State;

    /// Decompresses once into what is left of the caller's block.
    void Decompress();

    MStream* source = nullptr;
    std::unique_ptr<State> state;
    uint8_t inputArea[InputAreaSize];
    int64_t plainCount = 0;
    bool isEndReached = false;
};
