#include "ui/text/MShortenText.h"

#include "foundation/text/MUnicode.h"
#include "ui/text/MTextPen.h"

namespace {

/// The line as it is, if it has room.
MString ShortenLine(MFont& font, const MString& line, const MString& ellipsis, int32_t width) {
    const int32_t room = width - font.GetTextWidth(ellipsis);
    MTextPen pen(font);
    int32_t kept = 0;
    for (int32_t index = 0; index < line.GetLength();) {
        (void)pen.Take(MTakeCodePoint(line, index));
        if (pen.GetEnd() > width) {
            MString shortened = line.Substring(0, kept);
            shortened.TrimRight();
            return shortened + ellipsis;
        }
        if (pen.GetEnd() <= room) kept = index;
    }
    return line;
}

}  // namespace

MString MShortenText(MFont& font, const MString& text, int32_t width) {
    constexpr char16_t Ellipsis = 0x2026;
    const MString ellipsis = font.HasGlyph(Ellipsis) ? MString::Copy(&Ellipsis, 1) : MString("...");
    MString shortened;
    for (int32_t start = 0; start <= text.GetLength();) {
        const int32_t found = text.FindChar('\n', start);
        const int32_t end = found == MString::NotFound ? text.GetLength() : found;
        if (start > 0) shortened.AppendNewline();
        shortened += ShortenLine(font, text.Substring(start, end - start), ellipsis, width);
        start = end + 1;
    }
    return shortened;
}
