#include "foundation/text/encodings/MUTF8Codec.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr uint32_t ByteOrderMark = 0xFEFF;
constexpr uint32_t LastCodePoint = 0x10FFFF;
constexpr char16_t BrokenSequenceMark = 1;
/// From this high surrogate on, (high - SurrogateBase) * 1024 + low is the code point of a pair.
constexpr uint32_t SurrogateBase = 0xD7F7;
constexpr uint32_t FirstRawByte = 0x10FE01;
constexpr uint32_t LastRawByte = 0x10FEFF;

/// The decoder's state machine. It writes at most one unit for each byte.
class Decoder {
public:
    explicit Decoder(char16_t* target) : target(target) {}

    [[nodiscard]] char16_t* GetTarget() const { return target; }
    [[nodiscard]] bool IsPending() const { return pending > 0; }

    void Take(uint8_t byte) {
        if (pending == 0)
            Start(byte);
        else if ((byte & 0xC0) == 0x80)
            Continue(byte);
        else {
            *target++ = BrokenSequenceMark;
            pending = 0;
        }
    }

private:
    void Start(uint8_t byte) {
        if (byte < 0x80)
            *target++ = byte;
        else if ((byte & 0xE0) == 0xC0)
            Expect(1, byte & 0x1F);
        else if ((byte & 0xF0) == 0xE0)
            Expect(2, byte & 0x0F);
        else if ((byte & 0xF8) == 0xF0)
            Expect(3, byte & 0x07);
    }
    void Expect(int32_t count, uint32_t payload) {
        pending = count;
        codePoint = payload;
    }
    void Continue(uint8_t byte) {
        codePoint = codePoint << 6 | (byte & 0x3F);
        if (--pending == 0) Store();
    }
    void Store() {
        if (codePoint == ByteOrderMark) return;
        if (IsNoCharacter()) {
            *target++ = BrokenSequenceMark;
            return;
        }
        if (codePoint < 0x10000) {
            *target++ = static_cast<char16_t>(codePoint);
            return;
        }
        const uint32_t low = 0xDC00 + (codePoint & 0x3FF);
        *target++ = static_cast<char16_t>((codePoint - low) / 1024 + SurrogateBase);
        *target++ = static_cast<char16_t>(low);
    }

    /// Surrogates and what lies behind the last code point: as units they would not find the way back.
    [[nodiscard]] bool IsNoCharacter() const {
        return (codePoint >= 0xD800 && codePoint <= 0xDFFF) || codePoint > LastCodePoint;
    }

    char16_t* target;
    int32_t pending = 0;
    uint32_t codePoint = 0;
};

/// Decodes the ASCII bytes at the beginning, whole steps of them; most text is nothing else. Returns their
/// number.
size_t DecodePlain(std::string_view bytes, char16_t* target) {
    constexpr size_t Step = 16;
    const size_t end = std::min(bytes.find('\0'), bytes.size());
    size_t count = 0;
    for (; count + Step <= end; count += Step) {
        const char* const step = bytes.data() + count;
        uint64_t halves[2];
        std::memcpy(halves, step, Step);
        if (((halves[0] | halves[1]) & 0x8080808080808080u) != 0) break;
        for (size_t i = 0; i < Step; ++i) target[count + i] = static_cast<unsigned char>(step[i]);
    }
    return count;
}

char* PutCodePoint(char* target, uint32_t codePoint) {
    const auto put = [&](uint32_t byte) { *target++ = static_cast<char>(byte); };
    if (codePoint < 0x80) {
        put(codePoint);
        return target;
    }
    if (codePoint < 0x800)
        put(0xC0 | codePoint >> 6);
    else {
        if (codePoint < 0x10000)
            put(0xE0 | codePoint >> 12);
        else {
            put(0xF0 | codePoint >> 18);
            put(0x80 | (codePoint >> 12 & 0x3F));
        }
        put(0x80 | (codePoint >> 6 & 0x3F));
    }
    put(0x80 | (codePoint & 0x3F));
    return target;
}

/// Encodes the text that begins with a high surrogate at `index`, which moves to the last unit used up.
char* PutPair(char* target, const MString& text, int32_t& index) {
    const uint32_t high = text[index++];
    if (index >= text.GetLength() || !text[index].IsLowSurrogate()) return target;
    const uint32_t codePoint = (high - SurrogateBase) * 1024 + text[index++];
    if (codePoint < FirstRawByte || codePoint > LastRawByte) return PutCodePoint(target, codePoint);
    ++index;
    *target++ = static_cast<char>(codePoint & 0xFF);
    return target;
}

char* PutText(char* target, const MString& text) {
    for (int32_t i = 0; i < text.GetLength(); ++i) {
        const MChar unit = text[i];
        if (unit.IsHighSurrogate())
            target = PutPair(target, text, i);
        else if (!unit.IsLowSurrogate())
            target = PutCodePoint(target, unit);
    }
    return target;
}

}  // namespace

MString MEncoding::UTF8Codec::Decode(std::string_view bytes) const {
    MString text;
    char16_t* const first = text.Resize(static_cast<int32_t>(bytes.size()));
    const size_t plain = DecodePlain(bytes, first);
    Decoder decoder(first + plain);
    for (const char byte : bytes.substr(plain)) {
        if (byte == 0 && !decoder.IsPending()) break;
        decoder.Take(static_cast<uint8_t>(byte));
    }
    text.Resize(static_cast<int32_t>(decoder.GetTarget() - first));
    return text;
}

MCHARBuffer MEncoding::UTF8Codec::Encode(const MString& text, bool terminate) const {
    MCHARBuffer buffer(text.GetLength() * 3 + 1);
    char* const first = buffer.Edit();
    char* end = PutText(first, text);
    if (terminate) *end++ = 0;
    buffer.ResizeCount(static_cast<int32_t>(end - first));
    return buffer;
}
