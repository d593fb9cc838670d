#include "foundation/text/MUnicode.h"

#include <cstdint>
#include <type_traits>

namespace {

/// Code points that stand for the bytes 0x80 to 0xFF of no valid sequence.
constexpr uint32_t RawByteBase = 0x10FE00;
constexpr uint32_t FirstRawByte = RawByteBase + 0x80;
constexpr uint32_t LastRawByte = RawByteBase + 0xFF;

bool IsRawByte(uint32_t codePoint) {
    return codePoint >= FirstRawByte && codePoint <= LastRawByte;
}

void AppendEncoded(std::string& bytes, uint32_t codePoint) {
    const auto add = [&bytes](uint32_t byte) { bytes += static_cast<char>(byte); };
    const auto addTail = [&](int shift) { add(0x80 | (codePoint >> shift & 0x3F)); };
    if (codePoint == MRawBackslash) {
        add('\\');
    } else if (IsRawByte(codePoint)) {
        add(codePoint - RawByteBase);
    } else if (codePoint < 0x80) {
        add(codePoint);
    } else if (codePoint < 0x800) {
        add(0xC0 | codePoint >> 6);
        addTail(0);
    } else if (codePoint < 0x10000) {
        add(0xE0 | codePoint >> 12);
        addTail(6);
        addTail(0);
    } else {
        add(0xF0 | codePoint >> 18);
        addTail(12);
        addTail(6);
        addTail(0);
    }
}

/// Without a branch in the loop, so that it takes many units at a time. False if they are not all ASCII.
template <class Unit>
bool NarrowASCII(const Unit* units, size_t count, std::string& bytes) {
    bytes.resize(count);
    char* const narrow = bytes.data();
    std::make_unsigned_t<Unit> seen = 0;
    for (size_t i = 0; i < count; ++i) {
        seen |= static_cast<std::make_unsigned_t<Unit>>(units[i]);
        narrow[i] = static_cast<char>(units[i]);
    }
    return seen < 0x80;
}

/// The length of the sequence that a byte starts, 0 if it starts none.
size_t GetSequenceLength(uint8_t lead) {
    if (lead < 0x80) return 1;
    if (lead < 0xC2) return 0;
    if (lead < 0xE0) return 2;
    if (lead < 0xF0) return 3;
    return lead < 0xF5 ? 4 : 0;
}

/// Whether a code point is written in the one way that is allowed. Those that stand for a byte are none
/// that may come in, or two different names would be read as one.
bool IsValid(uint32_t codePoint, size_t length) {
    constexpr uint32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
    if (codePoint < least[length] || codePoint > 0x10FFFF) return false;
    if (codePoint >= 0xD800 && codePoint <= 0xDFFF) return false;
    return !IsRawByte(codePoint) && codePoint != MRawBackslash;
}

uint32_t TakeCodePoint(std::string_view bytes, size_t& index) {
    const auto lead = static_cast<uint8_t>(bytes[index]);
    const size_t length = GetSequenceLength(lead);
    uint32_t codePoint = length > 1 ? lead & (0x7Fu >> length) : lead;
    bool isValid = length > 0 && index + length <= bytes.size();
    for (size_t i = 1; isValid && i < length; ++i) {
        const auto tail = static_cast<uint8_t>(bytes[index + i]);
        isValid = (tail & 0xC0) == 0x80;
        codePoint = codePoint << 6 | (tail & 0x3F);
    }
    if (isValid && IsValid(codePoint, length)) {
        index += length;
        return codePoint;
    }
    ++index;
    return RawByteBase + lead;
}

}  // namespace

std::string MEncodeUTF8Exact(const MString& text) {
    std::string bytes;
    // Most texts are ASCII to their end.
    const auto length = static_cast<size_t>(text.GetLength());
    if (text.IsLiteral() ? NarrowASCII(text.GetLiteral(), length, bytes)
                         : NarrowASCII(text.GetUnits(), length, bytes))
        return bytes;
    bytes.clear();
    for (int32_t index = 0; index < text.GetLength();) AppendEncoded(bytes, MTakeCodePoint(text, index));
    return bytes;
}

MString MDecodeUTF8Exact(std::string_view bytes) {
    std::u16string units;
    units.reserve(bytes.size());
    for (size_t index = 0; index < bytes.size();) {
        const uint32_t codePoint = TakeCodePoint(bytes, index);
        if (codePoint < 0x10000) {
            units += static_cast<char16_t>(codePoint);
            continue;
        }
        units += static_cast<char16_t>(0xD800 + ((codePoint - 0x10000) >> 10));
        units += static_cast<char16_t>(0xDC00 + (codePoint & 0x3FF));
    }
    return MString::Copy(units.data(), static_cast<int32_t>(units.size()));
}

bool MIsUTF8(std::string_view bytes) {
    for (size_t index = 0; index < bytes.size();)
        if (IsRawByte(TakeCodePoint(bytes, index))) return false;
    return true;
}
