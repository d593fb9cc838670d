// The first byte is the size in pixels, or from 128 in points, the second one a character; the rest is a
// font. One that opens must give glyphs and measures within their bounds, and layouts that end.

#include "foundation/base/MException.h"
#include "streams/basic/MMemoryStream.h"
#include "ui/text/MFont.h"
#include "ui/text/MFontFace.h"
#include "ui/text/MTextLayout.h"

#include <cstddef>
#include <cstdint>

namespace {

constexpr int32_t Limit = 0x7FFF;

bool IsMeasure(int32_t value) {
    return value >= -Limit && value <= Limit;
}

void CheckGlyph(const MGlyph& glyph) {
    if (!glyph.isLoaded || !IsMeasure(glyph.advance) || !IsMeasure(glyph.left) || !IsMeasure(glyph.top))
        __builtin_trap();
    if (!glyph.mask) return;
    if (glyph.mask->IsEmpty() || glyph.mask->GetWidth() != glyph.width ||
        glyph.mask->GetHeight() != glyph.height)
        __builtin_trap();
}

void CheckFont(MFont& font, char32_t character) {
    if (font.GetFamily().IsEmpty()) __builtin_trap();
    for (const char32_t rendered : {character, U'\0', U'A', U' ', U'\u03A9', U'\U0001F600'})
        CheckGlyph(font.GetGlyph(rendered));
    if (font.GetLineHeight() < 1 || !IsMeasure(font.GetAscent()) || !IsMeasure(font.GetDescent()))
        __builtin_trap();
    const MString text = MString::Copy(u"A \u03A9\nA\U0001F600A");
    MTextLayout layout(font, text, MRect::FromSize(0, 0, 100, 100), MTextCenter | MTextMiddle);
    int32_t count = 0;
    for (MPlacedGlyph glyph; layout.TakeGlyph(glyph);) ++count;
    if (count > text.GetLength()) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 2) return 0;
    const auto fontSize = static_cast<int32_t>(size - 2);
    const double height = data[0] < 128 ? -data[0] : data[0] / 4.0;
    try {
        MBuffer source;
        source.Attach(data + 2, fontSize);
        MFont font;
        font.Open(source);
        font.SetSize(height);
        CheckFont(font, data[1]);
    } catch (const MException&) {}
    try {
        MMemoryStream stream(data + 2, fontSize);
        const MFontFace face(stream);
        MFontDescriptor().SetFromFace(face.GetRecord());
    } catch (const MException&) {}
    return 0;
}
