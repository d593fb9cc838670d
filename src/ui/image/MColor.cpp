#include "ui/image/MColor.h"

#include "foundation/base/MRaise.h"
#include "ui/image/pixels/MPixelLanes.h"
#include "ui/image/pixels/MPixelOperators.h"

namespace {

bool IsHexDigit(MChar character) {
    const MChar lower = character.ToLower();
    return lower.IsDigit() || (lower >= 'a' && lower <= 'f');
}

[[noreturn]] void RefuseText(const MString& text) {
    MRaise(MExceptionGeneral, "Invalid color to parse ({0}).", text);
}

uint8_t ParseByte(const MString& text, int32_t index) {
    const MChar high = text[index];
    const MChar low = text[index + 1];
    if (!IsHexDigit(high) || !IsHexDigit(low)) RefuseText(text);
    return static_cast<uint8_t>(high.ToHexDigit() << 4 | low.ToHexDigit());
}

}  // namespace

MString MColor::GetText() const {
    return MFormat("{0x;02}{1x;02}{2x;02}{3x;02}", red, green, blue, alpha);
}

MColor MColor::Parse(const MString& text) {
    if (text.GetLength() != 8) RefuseText(text);
    return FromRGB(ParseByte(text, 0), ParseByte(text, 2), ParseByte(text, 4), ParseByte(text, 6));
}

MColor MColor::WithLightnessOf(MColor other) const {
    return MPixelOperators::WithLightnessOf(MPixelLanes::Repeat(*this), MPixelLanes::Repeat(other))
        .GetColor()
        .WithAlpha(alpha);
}
