#pragma once

#include "streams/basic/MStream.h"

#include <memory>
#include <span>

/// A stream whose output is a digest: what is written is hashed and goes nowhere else.
/// Use: construct, `Write` any number of times, `Finish`, take the digest; `Reset` starts again.
class MHashStream : public MStream {
public:
    /// Hashes. Raises "Cryptographic hash stream has not been initialized." (0) if the deriving class has not
    /// set a block size.
    void Write(const void* block, int32_t size) override;
    virtual void Reset();
    /// Ends the input; from here on the digest can be taken and nothing may be written before a `Reset`.
    virtual void Finish() = 0;
    /// Writes the digest in binary, in the byte order in which it is printed.
    virtual void WriteDigest(MStream& target);
    /// In bytes.
    [[nodiscard]] virtual int32_t GetDigestSize() const = 0;
    /// The digest in place, in the byte order in which it is printed.
    [[nodiscard]] virtual std::span<const uint8_t> GetDigest() const = 0;
    /// The digest as upper-case hexadecimal digits.
    [[nodiscard]] MString GetDigestText() const;

protected:
    /// Sets the block size in bytes and allocates the block.
    void Initialize(int32_t newBlockSize);
    virtual void ProcessBlock(const uint8_t* bytes) = 0;
    /// Fills the last block by the padding that MD4 began: a bit 1, zeros to 8 bytes below a block of 64, and
    /// the count of bits, little-endian.
    void Pad(uint64_t bitCount);

private:
    int32_t blockSize = 0;
    int32_t fillCount = 0;
    std::unique_ptr<uint8_t[]> block;
};
