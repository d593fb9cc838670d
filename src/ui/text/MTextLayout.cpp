#include "ui/text/MTextLayout.h"

#include "foundation/text/MUnicode.h"

namespace {

int32_t FindLineEnd(const MString& text, int32_t start) {
    const int32_t end = text.FindChar('\n', start);
    return end == MString::NotFound ? text.GetLength() : end;
}

int32_t CountLineFeeds(const MString& text) {
    int32_t count = 0;
    for (int32_t end = FindLineEnd(text, 0); end < text.GetLength(); end = FindLineEnd(text, end + 1))
        ++count;
    return count;
}

/// What a text leaves of a length.
int32_t GetRoom(int32_t length, int32_t taken) {
    return std::max(0, MAddPixels(length, -int64_t{taken}));
}

}  // namespace

MTextLayout::MTextLayout(MFont& font, const MString& text, const MRect& rect, MTextAlignment alignment)
    : font(font), text(text), rect(rect), alignment(alignment), pen(font) {
    int32_t top = rect.top;
    if (alignment & (MTextMiddle | MTextBottom)) {
        const int32_t room = GetRoom(rect.GetHeight(), GetHeight(font, text));
        top += alignment & MTextBottom ? room : room / 2;
    }
    start.y = MAddPixels(top, int64_t{font.GetAscent()} + font.GetVerticalShift());
    BeginLine();
}

bool MTextLayout::TakeGlyph(MPlacedGlyph& glyph) {
    while (index < text.GetLength()) {
        const char32_t character = MTakeCodePoint(text, index);
        if (character == '\n') {
            start.y = MAddPixels(start.y, font.GetLineHeight());
            BeginLine();
        }
        const MGlyph* const found = pen.Take(character);
        if (!found || !found->mask) continue;
        const int32_t x = MAddPixels(start.x, int64_t{pen.GetOrigin()} + found->left);
        glyph = {found->mask.get(), {x, start.y - found->top}};
        return true;
    }
    return false;
}

void MTextLayout::BeginLine() {
    pen.Restart();
    start.x = rect.left;
    if (!(alignment & (MTextCenter | MTextRight))) return;
    const int32_t width = font.GetTextWidth(text, index, FindLineEnd(text, index) - index);
    const int32_t room = GetRoom(rect.GetWidth(), width);
    start.x += alignment & MTextRight ? room : (room + 1) / 2;
}

int32_t MTextLayout::GetWidth(MFont& font, const MString& text) {
    int32_t width = 0;
    for (int32_t start = 0; start <= text.GetLength();) {
        const int32_t end = FindLineEnd(text, start);
        width = std::max(width, font.GetTextWidth(text, start, end - start));
        start = end + 1;
    }
    return width;
}

int32_t MTextLayout::GetHeight(const MFont& font, const MString& text) {
    const int64_t lines = int64_t{font.GetLineHeight()} * CountLineFeeds(text);
    return MAddPixels(lines, int64_t{font.GetAscent()} + font.GetDescent());
}
