#include "ui/stml/MSTMLLineBreaker.h"

MSTMLBrokenLine MSTMLLineBreaker::BreakLine() {
    pen.Restart();
    line = {};
    line.start = cursor.GetPosition();
    hasBlank = false;
    MFont* const font = cursor.FindFont();
    bool isFull = false;
    while (!cursor.AtEnd() && !line.isEnded && !isFull) {
        const MSTMLPosition before = cursor.GetPosition();
        isFull = cursor.IsText() ? !TakeChar() : !TakeObject();
        if (isFull) cursor.Seek(before);
    }
    if (!isFull) {
        line.isEnded = true;
    } else if (hasBlank) {
        line = upToBlank;
        cursor.Seek(behindBlank);
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
    if (IsFull()) return false;
    Raise(size.y, 0);
    line.hasObject = true;
    line.width = pen.GetEnd();
    ++line.count;
    return true;
}

bool MSTMLLineBreaker::TakeChar() {
    MFont& font = cursor.GetFont();
    const char32_t character = cursor.NextChar();
    const bool isBlank = character <= ' ';
    if (isBlank) {
        if (character == '\n' && !isSingle) {
            line.isEnded = true;
            return true;
        }
        Raise(font.GetAscent(), font.GetDescent());
        upToBlank = line;
        behindBlank = cursor.GetPosition();
        hasBlank = true;
    }
    pen.SetFont(font);
    if (!pen.Take(character)) return true;
    if (IsFull()) return false;
    Raise(font.GetAscent(), font.GetDescent());
    line.width = pen.GetEnd();
    line.spaces += isBlank ? 1 : 0;
    ++line.count;
    return true;
}
