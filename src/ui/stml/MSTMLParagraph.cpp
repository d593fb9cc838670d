#include "ui/stml/MSTMLParagraph.h"

#include "ui/text/MLineBreaks.h"
#include "ui/text/MTextLayout.h"

#include <algorithm>
#include <utility>

MSTMLParagraph::MSTMLParagraph(uint8_t flags, MSTMLLook look) : flags(flags) {
    runs.push_back({look, MString(), nullptr});
}

MSTMLParagraph::MSTMLParagraph(const MSTMLParagraph& other)
    : MSTMLItem(other), fill(other.fill), flags(other.flags) {
    for (const MSTMLRun& run : other.runs)
        runs.push_back(
            {run.look, run.text, std::unique_ptr<MSTMLObject>(run.object ? run.object->Clone() : nullptr)});
}

MSTMLParagraph* MSTMLParagraph::Clone() const {
    return new MSTMLParagraph(*this);
}

void MSTMLParagraph::AddText(const MString& text, MSTMLLook look) {
    MString added = text;
    if (!HasContent()) added.TrimLeft();
    if (added.IsEmpty()) return;
    const MSTMLRun& last = runs.back();
    if (last.object || (last.look != look && !last.text.IsEmpty())) runs.emplace_back();
    runs.back().look = look;
    runs.back().text.Append(added);
}

void MSTMLParagraph::AddObject(std::unique_ptr<MSTMLObject> object, MSTMLLook look) {
    MString& text = runs.back().text;
    if (!text.IsEmpty() && !text[text.GetLength() - 1].IsBlank()) text.Append(MChar(' '));
    runs.push_back({look, MString(), std::move(object)});
}

bool MSTMLParagraph::HasContent() const {
    return std::ranges::any_of(runs, [](const MSTMLRun& run) { return run.object || !run.text.IsEmpty(); });
}

template <class TakeLine>
MSTMLMeasure MSTMLParagraph::BreakLines(MSTMLContext& context, int32_t width, TakeLine takeLine) const {
    MSTMLMeasure measure{context.mark, width, 0, 0};
    MSTMLCursor cursor(context, runs, false);
    MSTMLLineBreaker breaker(context, cursor, width, flags & SingleLine);
    do {
        const MSTMLBrokenLine line = breaker.BreakLine();
        measure.height = MAddPixels(measure.height, line.GetHeight());
        measure.outWidth = std::max(measure.outWidth, line.width);
        takeLine(line);
    } while (!cursor.AtEnd());
    return measure;
}

void MSTMLParagraph::Layout(MSTMLContext& context, int32_t width) {
    if (layout.Holds(context, width)) return;
    lines.clear();
    layout = BreakLines(context, width, [&](const MSTMLBrokenLine& line) { lines.push_back(line); });
}

int32_t MSTMLParagraph::ComputeHeight(MSTMLContext& context, int32_t width, int32_t) {
    Layout(context, width);
    return height = layout.height;
}

int32_t MSTMLParagraph::ComputeSize(MSTMLContext& context, int32_t width, int32_t& outWidth) {
    if (width < MSTMLUnlimited) {
        Layout(context, width);
        outWidth = layout.outWidth;
        return layout.height;
    }
    // Keeps the lines of the width that is shown.
    if (!natural.Holds(context, width)) natural = BreakLines(context, width, [](const MSTMLBrokenLine&) {});
    outWidth = natural.outWidth;
    return natural.height;
}

int32_t MSTMLParagraph::GetMinimalWidth(MSTMLContext& context) {
    if (minimal.Holds(context, 0)) return minimal.outWidth;
    minimal = {context.mark, 0, 0, 0};
    MTextPen pen;
    char32_t last = 0;
    for (MSTMLCursor cursor(context, runs, false); !cursor.AtEnd();) {
        int32_t width = 0;
        if (cursor.IsText()) {
            pen.SetFont(cursor.GetFont());
            const char32_t character = cursor.NextChar();
            if (character <= ' ' || MMayBreakBetween(std::exchange(last, character), character))
                pen.Restart();
            if (character > ' ' && pen.Take(character)) width = pen.GetEnd();
        } else {
            width = cursor.NextObject().GetMinimalWidth(context);
            pen.Restart();
            last = 0;
        }
        minimal.outWidth = std::max(minimal.outWidth, width);
    }
    return minimal.outWidth;
}

int32_t MSTMLParagraph::GetMaximalWidth(MSTMLContext& context) {
    int32_t width = 0;
    (void)ComputeSize(context, MSTMLUnlimited, width);
    return width;
}

void MSTMLParagraph::Paint(MSTMLContext& context, const MRect& rect, bool isInverted) {
    isInverted = fill.PaintFill(context.drawer, rect, isInverted);
    Layout(context, rect.GetWidth());
    const int32_t room = std::max(0, rect.GetHeight() - layout.height);
    int32_t top = rect.top;
    if (flags & Bottom)
        top += room;
    else if (flags & Middle)
        top += room / 2;
    const MRect clip =
        context.observer ? MRect{0, -MSTMLUnlimited, 0, MSTMLUnlimited} : context.drawer.GetClip();
    MSTMLCursor cursor(context, runs, isInverted);
    for (const MSTMLBrokenLine& line : lines) {
        // Letters may reach out of their line.
        const int32_t lineHeight = line.GetHeight();
        if (top - lineHeight > clip.bottom) break;
        const int32_t bottom = MAddPixels(top, lineHeight);
        if (bottom + lineHeight >= clip.top)
            PaintLine(context, cursor, line, {rect.left, top, rect.right, bottom - 1});
        if (context.observer &&
            (line.isEnded || (!cursor.AtEnd() && cursor.IsText() && cursor.NextChar() <= ' ')))
            context.observer->TakeCharacter(line.isEnded ? '\n' : ' ', {});
        top = bottom;
    }
}

namespace {

/// What is added between the places of a justified line: everywhere the same, and behind the spaces the rest;
/// in a line without spaces that goes behind the letters, too. A mark is at the place of the character that
/// it stands on.
class Justification {
public:
    Justification() = default;
    Justification(int32_t excess, const MSTMLBrokenLine& line) : hasSpaces(line.spaces > 0) {
        const int32_t gaps = line.count - line.marks - 1;
        extra = excess / gaps;
        remainder = excess - extra * gaps;
        takers = hasSpaces ? line.spaces : gaps;
    }

    [[nodiscard]] int32_t Take(bool isSpace) {
        if ((hasSpaces && !isSpace) || takers == 0) return extra;
        const int32_t share = remainder / takers;
        --takers;
        remainder -= share;
        return extra + share;
    }

private:
    bool hasSpaces = false;
    int32_t extra = 0;
    int32_t remainder = 0;
    int32_t takers = 0;  ///< of the remainder, that are left
};

}  // namespace

void MSTMLParagraph::PaintLine(MSTMLContext& context, MSTMLCursor& cursor, const MSTMLBrokenLine& line,
                               const MRect& rect) const {
    const int32_t room = std::max(0, rect.GetWidth() - line.width);
    const auto alignment = static_cast<Alignment>(flags & AlignmentMask);
    const bool isJustified =
        alignment == Justify && !line.isEnded && !line.hasObject && line.count - line.marks > 1;
    Justification justification = isJustified ? Justification(room, line) : Justification();
    int32_t left = rect.left;
    if (alignment == Center) left += (room + 1) / 2;
    if (alignment == Right) left += room;

    cursor.Seek(line.start);
    MTextPen pen;
    int32_t gap = 0;  // that justification adds in front of what comes next
    for (int32_t taken = 0; taken < line.count;) {
        bool isSpace = false;
        bool isMark = false;
        if (cursor.IsText()) {
            MFont& font = cursor.GetFont();
            const MColor color = cursor.GetColor();
            const char32_t character = cursor.NextChar();
            pen.SetFont(font);
            const MGlyph* const glyph = pen.Take(character);
            if (!glyph) continue;
            isMark = MIsCombining(character);
            if (!isMark) left += std::exchange(gap, 0);
            const MPoint origin = {left + pen.GetOrigin(), rect.top + line.ascent + font.GetVerticalShift()};
            if (context.observer)
                context.observer->TakeCharacter(character, MRect::FromSize(left + pen.GetOrigin(), rect.top,
                                                                           glyph->advance, line.GetHeight()));
            if (glyph->mask)
                context.drawer.PaintGlyph({glyph->mask.get(), origin + MPoint{glyph->left, -glyph->top}},
                                          color);
            isSpace = character == ' ';
        } else {
            const bool isInverted = cursor.IsObjectInverted();
            MSTMLObject& object = cursor.NextObject();
            const int32_t width = object.GetSize(context, rect.GetWidth(), MSTMLUnlimited).x;
            pen.TakeObject(width);
            const MRect cell = MRect::FromSize(left + pen.GetOrigin(), rect.top, width, rect.GetHeight());
            object.PaintInCell(context, cell, rect.GetWidth(), isInverted);
        }
        ++taken;
        if (!isMark) gap = justification.Take(isSpace);
    }
}
