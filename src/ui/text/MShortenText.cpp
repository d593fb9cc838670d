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

MString GetEllipsis(MFont& font) {
    constexpr char16_t Ellipsis = 0x2026;
    return font.HasGlyph(Ellipsis) ? MString::Copy(&Ellipsis, 1) : MString("...");
}

}  // namespace

MString MShortenText(MFont& font, const MString& text, int32_t width) {
    const MString ellipsis = GetEllipsis(font);
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

MString MShortenMiddle(MFont& font, const MString& line, int32_t width) {
    if (font.GetTextWidth(line) <= width) return line;
    const MString ellipsis = GetEllipsis(font);
    const auto keep = [&](int32_t count) {
        int32_t head = count / 3;
        int32_t tail = line.GetLength() - (count - head);
        // A pair of surrogates stays together.
        if (head > 0 && line[head - 1].IsHighSurrogate()) --head;
        if (tail < line.GetLength() && line[tail].IsLowSurrogate()) ++tail;
        return line.Substring(0, head) + ellipsis + line.Substring(tail);
    };
    int32_t kept = 0;
    for (int32_t above = line.GetLength(); above - kept > 1;) {
        const int32_t middle = kept + (above - kept) / 2;
        (font.GetTextWidth(keep(middle)) <= width ? kept : above) = middle;
    }
    return keep(kept);
}
