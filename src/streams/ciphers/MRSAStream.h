#pragma once

#include "streams/ciphers/MBigInteger.h"
#include "streams/ciphers/MCryptoStream.h"

/// RSA by its bare formula (PKCS 1 without its paddings): a block of plain data is a number of half the key's
/// bytes, lowest first, and becomes one of the key's bytes. The last block is filled with zeros, so whoever
/// reads must know the length of the data. Equal blocks give equal blocks, and small numbers are found by
/// trying: this keeps content from those without a key, no more. Nothing guards against measuring its time.
class MRSAStream : public MCryptoStream {
public:
    /// With a key length of 2048 bits, and no keys.
    MRSAStream();
    ~MRSAStream() noexcept(false) override;

    /// Rounded up to a multiple of 64 bits. The keys are gone. 0 or below leaves the stream unusable.
    void SetKeyLength(int32_t bits) override;
    /// Of the modulus, in bytes.
    [[nodiscard]] int32_t GetKeySize() const { return keySize; }

    /// Makes a pair of keys; the flag asks for a random exponent instead of 0x10001, which takes several
    /// times as long. Raises "Random bytes are not available. {0}" (0).
    void GenerateKeys(bool isExponentRandom) override;
    /// The modulus, then the private or the public exponent, each of the key size, lowest byte first.
    void GetKey(MStream& target, bool isPrivate) override;
    /// Raises "Cryptographic key is not valid." (0) for a modulus that is even or 1, and "Could not read
    /// required data from stream." (0x100); the old key stays then.
    void SetKey(MStream& keySource, bool isPrivate) override;

protected:
    /// Both raise "Cryptographic key is not valid." (0) if no key was set, and "Block does not fit the
    /// cryptographic key." (0) for a number that is not below the modulus.
    void EncodeBlock(const void* input, void* output) override;
    void DecodeBlock(const void* input, void* output) override;

private:
    /// Fills `e` and `d` for a modulus with this count of numbers prime to it; false if they do not exist.
    bool MakeExponents(const MBigInteger& phi, bool isExponentRandom);
    void Transform(std::span<const uint8_t> input, std::span<uint8_t> output, const MBigInteger& exponent);

    int32_t keySize = 0;
    MBigInteger e;
    MBigInteger d;
    MBigInteger n;
    /// The block at hand, before and after.
    MBigInteger message;
    MBigInteger power;
};
