#include "streams/ciphers/MBlowfishStream.h"

#include "foundation/base/MRandomBytes.h"

#include <algorithm>

namespace {

constexpr int32_t BlockSize = MBlowfishCipher::BlockSize;
/// Bytes at a time: they stay in the processor's nearest cache between the cipher and the source.
constexpr int32_t PieceSize = 8192;

void SaveLastBlock(const uint8_t* end, std::span<uint8_t> savedBlock) {
    std::copy(end - BlockSize, end, savedBlock.begin());
}

}  // namespace

MBlowfishStream::MBlowfishStream() {
    SetBlockSizes(BlockSize, BlockSize);
    SetModification(new CBCBlockModification);
}

MBlowfishStream::~MBlowfishStream() noexcept(false) = default;

MBufferingStream::CBCBlockModification* MBlowfishStream::GetChaining() const {
    return dynamic_cast<CBCBlockModification*>(&GetModification());
}

void MBlowfishStream::Write(const void* block, int32_t size) {
    CBCBlockModification* chaining = GetChaining();
    if (!chaining || size < BlockSize) {
        MCryptoStream::Write(block, size);
        return;
    }
    const auto* bytes = static_cast<const uint8_t*>(block);
    const int32_t head = (BlockSize - GetWaitingCount()) % BlockSize;
    MCryptoStream::Write(bytes, head);
    const int32_t tail = (size - head) % BlockSize;
    WriteBlocks(bytes + head, size - head - tail, *chaining);
    MCryptoStream::Write(bytes + size - tail, tail);
}

void MBlowfishStream::WriteBlocks(const uint8_t* bytes, int32_t size, CBCBlockModification& chaining) {
    uint8_t piece[PieceSize];
    while (size > 0) {
        const int32_t count = std::min(size, PieceSize);
        cipher.EncodeChained(bytes, piece, count, chaining.GetChainBlock().data());
        bytes += count;
        size -= count;
        SaveLastBlock(bytes, chaining.GetSavedBlock());
        GetSubStream()->Write(piece, count);
    }
}

int32_t MBlowfishStream::Read(void* block, int32_t size) {
    CBCBlockModification* chaining = GetChaining();
    if (!chaining) return MCryptoStream::Read(block, size);
    auto* bytes = static_cast<uint8_t*>(block);
    int32_t total = MCryptoStream::Read(bytes, std::min(size, GetWaitingCount()));
    while (size - total >= BlockSize) {
        const int32_t wanted = std::min((size - total) / BlockSize * BlockSize, PieceSize);
        const int32_t count = ReadBlocks(bytes + total, wanted, *chaining);
        total += count;
        if (count < wanted) return total;
    }
    return total + MCryptoStream::Read(bytes + total, size - total);
}

int32_t MBlowfishStream::ReadBlocks(uint8_t* bytes, int32_t size, CBCBlockModification& chaining) {
    const int32_t count = ReadSource(bytes, size);
    int32_t tail = count % BlockSize;
    uint8_t* end = bytes + count - tail;
    if (end > bytes) {
        cipher.DecodeChained(bytes, bytes, count - tail, chaining.GetChainBlock().data());
        SaveLastBlock(end, chaining.GetSavedBlock());
    }
    if (tail > 0) chaining.BeforeDecode(end, tail);
    return count;
}

void MBlowfishStream::EncodeBlock(const void* input, void* output) {
    cipher.Encode(static_cast<const uint8_t*>(input), static_cast<uint8_t*>(output));
}

void MBlowfishStream::DecodeBlock(const void* input, void* output) {
    cipher.Decode(static_cast<const uint8_t*>(input), static_cast<uint8_t*>(output));
}

void MBlowfishStream::UseKey(const Key& newKey) {
    key = newKey;
    cipher.SetKey(key);
}

void MBlowfishStream::GenerateKeys(bool /*flag*/) {
    Key newKey;
    MFillRandom(newKey.data(), KeySize);
    UseKey(newKey);
}

void MBlowfishStream::GetKey(MStream& target, bool /*isPrivate*/) {
    target.Write(key.data(), KeySize);
}

void MBlowfishStream::SetKey(MStream& keySource, bool /*isPrivate*/) {
    Key newKey;
    keySource.ReadRequired(newKey.data(), KeySize);
    UseKey(newKey);
}

void MBlowfishStream::SetKeyText(const MString& text, bool /*flag*/) {
    Key newKey{};
    const int32_t count = std::min(text.GetLength(), KeySize);
    for (int32_t i = 0; i < count; ++i)
        newKey[static_cast<size_t>(i)] = static_cast<uint8_t>(text[i].ToNarrow());
    UseKey(newKey);
}
