#include "ui/stml/MSTMLLineBreaker.h"

#include "ui/text/MLineBreaks.h"

#include <utility>

namespace {

/// The one that stands for what is none.
constexpr char32_t ObjectCharacter = 0xFFFC;

}  // namespace

MSTMLBrokenLine MSTMLLineBreaker::BreakLine() {
    pen.Restart();
    line = {};
    line.start = cursor.GetPosition();
    hasBreak = false;
    last = 0;
    MFont* const font = cursor.FindFont();
    bool isFull = false;
    while (!cursor.AtEnd() && !line.isEnded && !isFull) {
        const MSTMLPosition before = cursor.GetPosition();
        isFull = cursor.IsText() ? !TakeChar() : !TakeObject();
        if (isFull) cursor.Seek(before);
    }
    if (!isFull) {
        line.isEnded = true;
    } else if (hasBreak) {
        line = upToBreak;
        cursor.Seek(behindBreak);
        SkipBlanks();
    }
    if (line.ascent == 0 && line.descent == 0 && font) Raise(font->GetAscent(), font->GetDescent());
    return line;
}

/// Blanks at which a line was broken belong to its end, and so does a line break or the end of the paragraph
/// behind them.
void MSTMLLineBreaker::SkipBlanks() {
    while (!cursor.AtEnd() && cursor.IsText() && !line.isEnded) {
        const MSTMLPosition before = cursor.GetPosition();
        const char32_t character = cursor.NextChar();
        if (character > ' ') return cursor.Seek(before);
        line.isEnded = character == '\n';
    }
    if (cursor.AtEnd()) line.isEnded = true;
}

bool MSTMLLineBreaker::TakeObject() {
    const MPoint size = cursor.NextObject().GetSize(context, maxWidth, MSTMLUnlimited);
    pen.TakeObject(size.x);
    last = ObjectCharacter;
    if (IsFull()) return false;
    Raise(size.y, 0);
    line.hasObject = true;
    line.width = pen.GetEnd();
    ++line.count;
    return true;
}

bool MSTMLLineBreaker::TakeChar() {
    MFont& font = cursor.GetFont();
    const MSTMLPosition before = cursor.GetPosition();
    const char32_t character = cursor.NextChar();
    const char32_t previous = std::exchange(last, character);
    const bool isBlank = character <= ' ';
    if (isBlank) {
        if (character == '\n' && !isSingle) {
            line.isEnded = true;
            return true;
        }
        Raise(font.GetAscent(), font.GetDescent());
    }
    const bool isBetween = line.count > 0 && previous > ' ' && MMayBreakBetween(previous, character);
    if (isBlank || isBetween) {
        // Of several blanks the line has none at its end.
        const bool isBehindBlank = isBlank && previous <= ' ' && hasBreak;
        if (!isBehindBlank) upToBreak = line;
        behindBreak = isBlank ? cursor.GetPosition() : before;
        hasBreak = true;
    }
    pen.SetFont(font);
    if (!pen.Take(character)) return true;
    const bool isMark = MIsCombining(character);
    if (!isMark && IsFull()) return false;
    Raise(font.GetAscent(), font.GetDescent());
    line.width = pen.GetEnd();
    line.spaces += isBlank ? 1 : 0;
    line.marks += isMark ? 1 : 0;
    ++line.count;
    return true;
}
