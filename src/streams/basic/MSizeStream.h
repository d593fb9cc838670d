#pragma once

#include "streams/basic/MStream.h"

/// A window of fixed size on another stream: its byte 0 is the source's byte at the start offset.
/// The source moves with the window, so nobody else may read it in between without seeking back.
class MSizeStream : public MStream {
public:
    /// No source yet: not open, and empty.
    MSizeStream() = default;
    /// A seekable window starts at the source's position; any other only counts what passes.
    /// With `owns` the source is deleted with the window.
    MSizeStream(MStream* source, int64_t size, bool seekable, bool owns);
    MSizeStream(const MSizeStream&) = delete;
    MSizeStream& operator=(const MSizeStream&) = delete;
    ~MSizeStream() override;

    MStream* GetSubStream() override { return source; }
    /// Writes what fits, and if that was not all raises
    /// "The stream cannot be written, because its size is out of range." (0x100).
    void Write(const void* block, int32_t count) override;
    int32_t Read(void* block, int32_t count) override;
    /// The position is clamped to the window. Raises "Seeking operation is forbidden for the size-stream."
    /// (0x100) and "Invalid seek origin." (2).
    void Seek(int64_t offset, MSeekOrigin origin) override;
    int64_t GetPosition() override { return position; }
    void Flush() override;
    bool IsEnd() override { return position == size; }
    int64_t GetSize() override { return size; }
    bool IsOpen() override { return source != nullptr; }

protected:
    /// Puts the window on a source, from its beginning; an owned source it had before is deleted.
    void AttachWindow(MStream* newSource, int64_t newSize, bool isSeekable, bool owns);
    /// Where in the source the window begins; 0 if it is not seekable.
    [[nodiscard]] int64_t GetStartOffset() const { return startOffset; }

private:
    /// How much of `count` bytes lies within the window.
    [[nodiscard]] int32_t Clamp(int32_t count) const;

    MStream* source = nullptr;
    bool ownsSource = false;
    bool seekable = false;
    int64_t startOffset = 0;
    int64_t position = 0;
    int64_t size = 0;
};
