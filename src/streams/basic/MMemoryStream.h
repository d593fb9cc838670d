#pragma once

#include "streams/basic/MStream.h"

/// A stream in memory. Its block is shared with whoever gave it until the first write makes it private.
/// The logical size is what was written; the block behind it may be larger. Sizes are 32 bit.
class MMemoryStream : public MStream {
public:
    MMemoryStream() = default;
    /// Reads memory that outlives the stream; a write takes a private copy first.
    MMemoryStream(const void* block, int32_t size) { Attach(block, size); }
    explicit MMemoryStream(const MBuffer& source) { Attach(source); }

    /// Empty again, without a block.
    void Reset();
    /// Starts over at the beginning of memory that outlives the stream.
    void Attach(const void* block, int32_t size);
    /// Starts over at the beginning of a buffer, which is shared.
    void Attach(const MBuffer& source);
    /// Cuts the block to the logical size, and releases it when that is 0.
    void Trim();

    /// The block; its size is the capacity, of which `GetSize` bytes count.
    [[nodiscard]] const MCHARBuffer& GetBuffer() const { return buffer; }
    /// The byte at the position; null while there is no block.
    [[nodiscard]] virtual const char* GetPointer() const;

    /// Raises "Trying to write a block of negative size." (0), and "Out of memory." (0) beyond 2 GiB.
    void Write(const void* block, int32_t size) override;
    /// Raises "Trying to read a block of negative size." (0).
    int32_t Read(void* block, int32_t size) override;
    /// Unlike the base a byte 0 is stored. A line that ends with the data leaves the position one past them.
    /// Raises "Trying to read a string of negative size." (0).
    MLineState ReadLine(char* line, int32_t size) override;
    /// The position is clamped to the data. Raises "Invalid seek origin." (2).
    void Seek(int64_t offset, MSeekOrigin origin) override;
    int64_t GetPosition() override { return position; }
    bool IsEnd() override { return position >= logicalSize; }
    int64_t GetSize() override { return logicalSize; }

private:
    void Reserve(int64_t needed);

    MCHARBuffer buffer;
    int32_t logicalSize = 0;
    int32_t position = 0;
};
