#pragma once

#include "streams/ciphers/MBlowfishCipher.h"
#include "streams/ciphers/MCryptoStream.h"

#include <array>

/// Blowfish in CBC form with a first chain block of zeros; the data keep their length. A last block of less
/// than 8 bytes is only masked, with the plain block before it, so it is hidden from nobody who knows that
/// block. There is one key of 56 bytes, and the flags of the key services mean nothing. Until a key is set
/// the cipher works with its initial tables, which protect nothing.
class MBlowfishStream : public MCryptoStream {
public:
    static constexpr int32_t KeySize = 56;

    MBlowfishStream();
    ~MBlowfishStream() noexcept(false) override;

    /// As the base's, with many blocks at a time while the modification is the CBC one.
    void Write(const void* block, int32_t size) override;
    int32_t Read(void* block, int32_t size) override;

    /// A key from the random source. Raises "Random bytes are not available. {0}" (0).
    void GenerateKeys(bool flag = false) override;
    /// 56 bytes.
    void GetKey(MStream& target, bool isPrivate = false) override;
    /// Raises "Could not read required data from stream." (0x100), and the old key stays.
    void SetKey(MStream& keySource, bool isPrivate = false) override;
    /// The low bytes of at most 56 characters, with zeros behind them.
    void SetKeyText(const MString& text, bool flag = false) override;

protected:
    void EncodeBlock(const void* input, void* output) final;
    void DecodeBlock(const void* input, void* output) final;

private:
    using Key = std::array<uint8_t, KeySize>;

    void UseKey(const Key& newKey);
    /// Null if the blocks are modified in another way.
    [[nodiscard]] CBCBlockModification* GetChaining() const;
    void WriteBlocks(const uint8_t* bytes, int32_t size, CBCBlockModification& chaining);
    /// Reads whole blocks and, at the end of the source, the short last one; returns the count of bytes.
    int32_t ReadBlocks(uint8_t* bytes, int32_t size, CBCBlockModification& chaining);

    Key key{};
    MBlowfishCipher cipher;
};
