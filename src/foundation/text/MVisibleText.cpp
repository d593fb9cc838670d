#include "foundation/text/MVisibleText.h"

#include "foundation/text/MNumberText.h"

namespace {

/// The code points that stand for bytes which are no UTF-8, in their two units.
constexpr char16_t RawHigh = 0xDBFF;
constexpr char16_t FirstRawLow = 0xDE80;
constexpr char16_t LastRawLow = 0xDEFF;

bool IsRawByte(const MString& text, int32_t index) {
    return text[index] == RawHigh && index + 1 < text.GetLength() && text[index + 1] >= FirstRawLow &&
           text[index + 1] <= LastRawLow;
}

MString GetHexadecimal(char16_t unit, int32_t width) {
    return MNumberToText(int32_t{unit}, {.radix = 16, .width = width, .pad = '0'});
}

bool IsCommand(MChar character) {
    const auto isIn = [character](char16_t first, char16_t last) {
        return character >= first && character <= last;
    };
    if (character.IsControl()) return character != u'\n' && character != u'\t';
    return isIn(0x7F, 0x9F) || isIn(0x202A, 0x202E) || isIn(0x2066, 0x2069);
}

}  // namespace

MString MMakeVisible(const MString& text) {
    MString visible;
    int32_t taken = 0;
    for (int32_t i = 0; i < text.GetLength(); ++i) {
        const bool isRaw = IsRawByte(text, i);
        if (!isRaw && !IsCommand(text[i])) continue;
        visible += text.Substring(taken, i - taken);
        visible += isRaw ? "\\x" + GetHexadecimal(text[i + 1] & 0xFF, 2) : "\\u" + GetHexadecimal(text[i], 4);
        if (isRaw) ++i;
        taken = i + 1;
    }
    return taken == 0 ? text : visible + text.Substring(taken);
}
