#pragma once

#include "foundation/base/MBuffer.h"
#include "streams/basic/MStream.h"

#include <memory>
#include <span>

/// A filter that cuts what passes into blocks of a fixed size and changes each: what is written is encoded
/// into the source, what is read is decoded from it. A deriving class has the two block functions; an object
/// that can be exchanged works on each block before and after them. All sizes are in bytes.
///
/// Use: construct, `Open`, write and `FinishBlock`, or read. The source belongs to the caller.
class MBufferingStream : public MStream {
public:
    /// Works on the blocks around the block functions. This plain one fills a last block with zeros.
    class BlockModificationProcessor;
    /// Cipher block chaining, in which the plain data keep their length.
    class CBCBlockModification;

    MBufferingStream();
    MBufferingStream(const MBufferingStream&) = delete;
    MBufferingStream& operator=(const MBufferingStream&) = delete;
    ~MBufferingStream() noexcept(false) override;

    /// Starts over on a source, at the first block, to be written if `encode` is true and else to be read. A
    /// null source closes.
    void Open(MStream* newSource, bool encode);
    bool IsOpen() override { return source != nullptr; }
    MStream* GetSubStream() override { return source; }
    /// Takes ownership of the object, deletes the one before and starts over at a first block. Null installs
    /// a plain one.
    void SetModification(BlockModificationProcessor* object);

    /// Both raise "Buffering stream has not been initialized." (0x102) if there are no block sizes or no
    /// source, and not-implemented for the direction that the stream was not opened for.
    void Write(const void* block, int32_t size) override;
    int32_t Read(void* block, int32_t size) override;
    /// Flushes the source. Bytes of a block that is not full stay.
    void Flush() override;
    /// True if nothing decoded is left and the source is at its end.
    bool IsEnd() override;

    /// Writes a block that is partly filled, and must be called at the end of writing. What is written
    /// afterwards begins a new block. Raises as `Write` does.
    virtual void FinishBlock();

protected:
    /// From a block of the input size to one of the output size. The areas do not overlap.
    virtual void EncodeBlock(const void* input, void* output) = 0;
    /// From a block of the output size to one of the input size.
    virtual void DecodeBlock(const void* input, void* output) = 0;

    /// Of plain and of encoded blocks; allocates the areas and starts over at a first block. A size below 1
    /// leaves the stream unusable. Raises "Out of memory." (0).
    void SetBlockSizes(int32_t newInputSize, int32_t newOutputSize);

    // For classes that pass many blocks at once.
    [[nodiscard]] BlockModificationProcessor& GetModification() const { return *modification; }
    /// The count of bytes that wait: in writing for the block to fill, in reading to be taken.
    [[nodiscard]] int32_t GetWaitingCount() const { return fillCount - readIndex; }
    /// Reads until the block is full or the source has no more, and returns the count.
    int32_t ReadSource(void* block, int32_t size);

private:
    void StartOver();
    void RequireInitialized() const;
    void RequireWritable() const;
    void WriteBlock();
    /// Makes the next decoded bytes wait; false at the end of the source.
    bool ReadBlock();

    bool isEncoding = false;
    MStream* source = nullptr;
    int32_t inputSize = 0;
    int32_t outputSize = 0;
    MBufferT<uint8_t> inputBlock;
    MBufferT<uint8_t> outputBlock;
    int32_t fillCount = 0;
    int32_t readIndex = 0;
    /// Where the bytes stand that wait to be taken: the input block, or the output block if nothing was
    /// decoded.
    const uint8_t* readBlock = nullptr;
    std::unique_ptr<BlockModificationProcessor> modification;
};

class MBufferingStream::BlockModificationProcessor {
public:
    BlockModificationProcessor() = default;
    BlockModificationProcessor(const BlockModificationProcessor&) = delete;
    BlockModificationProcessor& operator=(const BlockModificationProcessor&) = delete;
    virtual ~BlockModificationProcessor() noexcept(false) = default;

    /// Starts over at a first block.
    virtual void Init(int32_t newInputSize, int32_t newOutputSize);
    /// `size` of the plain block's bytes count. True if the block is to be encoded; with false the first
    /// `size` bytes go to the source as they are.
    virtual bool BeforeEncode(uint8_t* block, int32_t& size);
    /// Returns how many bytes of the encoded block go to the source.
    virtual int32_t AfterEncode(uint8_t* block);
    /// `size` of the encoded block's bytes came from the source; zeros follow. True if the block is to be
    /// decoded; with false the first `size` bytes are the plain ones.
    virtual bool BeforeDecode(uint8_t* block, int32_t& size);
    /// Returns how many bytes of the plain block count.
    virtual int32_t AfterDecode(uint8_t* block);

protected:
    int32_t inputSize = 0;
    int32_t outputSize = 0;
};

/// Each plain block is combined with the encoded block before it, the first with zeros. A short last block is
/// not encoded but masked with the plain block before it; if there is none, it stays as it is.
class MBufferingStream::CBCBlockModification final : public BlockModificationProcessor {
public:
    void Init(int32_t newInputSize, int32_t newOutputSize) override;
    bool BeforeEncode(uint8_t* block, int32_t& size) override;
    int32_t AfterEncode(uint8_t* block) override;
    bool BeforeDecode(uint8_t* block, int32_t& size) override;
    int32_t AfterDecode(uint8_t* block) override;

    // For a cipher that chains many blocks at once. Both are as long as the smaller of the two blocks.
    /// The encoded block that the next one is combined with.
    [[nodiscard]] std::span<uint8_t> GetChainBlock() { return {chainBlock.Edit(), GetSize()}; }
    /// The plain block that masks a short last one.
    [[nodiscard]] std::span<uint8_t> GetSavedBlock() { return {savedBlock.Edit(), GetSize()}; }

private:
    [[nodiscard]] size_t GetSize() const { return static_cast<size_t>(chainBlock.GetCount()); }
    /// False, with the block masked, if it is short.
    bool MaskIfShort(uint8_t* block, int32_t wholeSize);

    MBufferT<uint8_t> savedBlock;
    MBufferT<uint8_t> chainBlock;
    int32_t lastSize = 0;
};
