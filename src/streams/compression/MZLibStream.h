#pragma once

#include "streams/basic/MStream.h"

#include <memory>

struct z_stream_s;

/// Compresses what is written to its source, or decompresses what is read from it: the zlib format (RFC
/// 1950).
/// The source belongs to the caller. A compressing stream must be finished before it is closed or destroyed.
/// A compressed stream is sought forward only, by reading.
class MZLibStream : public MStream {
public:
    MZLibStream();
    MZLibStream(const MZLibStream&) = delete;
    MZLibStream& operator=(const MZLibStream&) = delete;
    /// Closes, and so raises for a forgotten `Finish`, unless another exception is on its way.
    ~MZLibStream() noexcept(false) override;

    /// Closes first. A null source leaves the stream closed; the level is clamped to 0..9 and matters only
    /// when compressing. Raises "Could not initialize deflating." or "Could not initialize inflating."
    /// (0x101).
    void Open(MStream* newSource, bool compress, int32_t level = 9);
    bool IsOpen() override { return source != nullptr; }
    /// Raises "ZLIB stream has not been terminated." (0x100) if `Finish` is missing; closed it is all the
    /// same.
    virtual void Close();
    /// Writes what is left and the end of the compressed data. Raises "Data could not be compressed." (0).
    virtual void Finish();

    MStream* GetSubStream() override { return source; }
    /// Raises "Data could not be compressed." (0x100).
    void Write(const void* block, int32_t size) override;
    /// Short only at the end of the compressed data. Raises "Source compressed stream has invalid content.",
    /// with code 0 if the source ends too early and 0x100 if the data are corrupt.
    int32_t Read(void* block, int32_t size) override;
    /// Whether reading has come to the end of the compressed data.
    [[nodiscard]] bool IsComplete() const { return isComplete; }
    /// The count of plain bytes that have passed.
    int64_t GetPosition() override { return plainCount; }
    void Flush() override;
    /// True at the end of the source.
    bool IsEnd() override;

private:
    static constexpr int32_t AreaSize = 4096;

    /// Writes all that deflating gives for the input at hand; `errorCode` is raised if it fails.
    void Deflate(int flush, int32_t errorCode);
    void ReadSource();
    /// Ends and frees the library's state.
    void Release() noexcept;

    bool isCompressing = false;
    MStream* source = nullptr;
    std::unique_ptr<z_stream_s> state;
    uint8_t inputArea[AreaSize];
    uint8_t outputArea[AreaSize];
    int64_t plainCount = 0;
    bool isComplete = false;
};
