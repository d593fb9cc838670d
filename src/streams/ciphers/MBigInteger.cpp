#include "streams/ciphers/MBigInteger.h"

#include "foundation/base/MException.h"
#include "foundation/base/MRandomBytes.h"

#include <algorithm>
#include <bit>

namespace {

size_t GetWordCount(int64_t size) {
    return static_cast<size_t>((std::max<int64_t>(size, 0) + MBigInteger::WordSize - 1) /
                               MBigInteger::WordSize);
}

}  // namespace

MBigInteger::MBigInteger(int32_t size, uint32_t value) {
    SetSize(size);
    if (!words.empty()) words[0] = value;
}

void MBigInteger::SetSize(int32_t size) {
    words.resize(GetWordCount(size));
    hasCarry = false;
}

void MBigInteger::RequireWords() const {
    if (words.empty()) MRaise(MExceptionGeneral, "Big integer object has not been initialized.");
}

void MBigInteger::RequireWords(const MBigInteger& other) const {
    RequireWords();
    other.RequireWords();
}

std::span<const uint32_t> MBigInteger::GetUsedWords() const {
    size_t count = words.size();
    while (count > 0 && words[count - 1] == 0) --count;
    return std::span(words).first(count);
}

void MBigInteger::SetValue(uint32_t value) {
    RequireWords();
    std::ranges::fill(words, 0u);
    words[0] = value;
}

void MBigInteger::SetValue(const MBigInteger& other) {
    RequireWords(other);
    const size_t count = words.size();
    words = other.words;
    words.resize(count);
}

void MBigInteger::SetBytes(std::span<const uint8_t> bytes) {
    words.assign(GetWordCount(static_cast<int64_t>(bytes.size())), 0);
    for (size_t i = 0; i < bytes.size(); ++i) words[i / WordSize] |= uint32_t(bytes[i]) << i % WordSize * 8;
}

void MBigInteger::GetBytes(std::span<uint8_t> bytes) const {
    RequireWords();
    for (size_t i = 0; i < bytes.size(); ++i) {
        const size_t word = i / WordSize;
        bytes[i] = word < words.size() ? static_cast<uint8_t>(words[word] >> i % WordSize * 8) : uint8_t(0);
    }
}

void MBigInteger::SetRandom() {
    RequireWords();
    MFillRandom(words.data(), GetSize());
}

void MBigInteger::SetBit(int32_t index) {
    RequireWords();
    if (index >= 0 && index < GetCount() * WordBits)
        words[static_cast<size_t>(index / WordBits)] |= 1u << index % WordBits;
}

void MBigInteger::Write(MStream& target) const {
    RequireWords();
    for (const uint32_t word : words) target.WriteInt32(static_cast<int32_t>(word));
}

void MBigInteger::Read(MStream& source) {
    RequireWords();
    for (uint32_t& word : words) word = static_cast<uint32_t>(source.ReadInt32());
}

int32_t MBigInteger::Compare(const MBigInteger& other) const {
    RequireWords(other);
    const std::span<const uint32_t> ours = GetUsedWords();
    const std::span<const uint32_t> theirs = other.GetUsedWords();
    if (ours.size() != theirs.size()) return ours.size() < theirs.size() ? -1 : 1;
    for (size_t i = ours.size(); i-- > 0;) {
        if (ours[i] != theirs[i]) return ours[i] < theirs[i] ? -1 : 1;
    }
    return 0;
}

bool MBigInteger::IsEqual(uint32_t value) const {
    RequireWords();
    return words[0] == value && GetUsedWords().size() <= 1;
}

bool MBigInteger::IsOdd() const {
    RequireWords();
    return (words[0] & 1) != 0;
}

bool MBigInteger::GetBit(int32_t index) const {
    RequireWords();
    if (index < 0 || index >= GetCount() * WordBits) return false;
    return (words[static_cast<size_t>(index / WordBits)] >> index % WordBits & 1) != 0;
}

int32_t MBigInteger::GetBitCount() const {
    RequireWords();
    const std::span<const uint32_t> used = GetUsedWords();
    if (used.empty()) return 0;
    return static_cast<int32_t>(used.size()) * WordBits - std::countl_zero(used.back());
}
