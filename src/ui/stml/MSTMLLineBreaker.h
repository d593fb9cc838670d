#pragma once

#include "ui/stml/MSTMLCursor.h"
#include "ui/text/MTextPen.h"

#include <algorithm>
#include <cstdint>

/// A line of a paragraph as it was broken.
struct MSTMLBrokenLine {
    MSTMLPosition start;
    int32_t count =
        0;  ///< of characters and objects; the blanks at which the line was broken are none of them
    int32_t spaces = 0;  ///< among these
    int32_t marks = 0;   ///< among these: characters that stand on the one before them
    int32_t width = 0;
    int32_t ascent = 0;
    int32_t descent = 0;
    bool hasObject = false;
    bool isEnded = false;  ///< by a line break or by the end of the paragraph

    [[nodiscard]] int32_t GetHeight() const { return MAddPixels(ascent, descent); }
};

/// Cuts a paragraph into lines. A line has as many words as fit into the width; a word that is wider is cut
/// between two characters. Lines break at the blanks of `MChar` and where `MMayBreakBetween` lets them, and
/// end at a newline.
class MSTMLLineBreaker {
public:
    /// With `isSingle` all of the paragraph is one line, and of the width objects may take their shares only.
    /// The cursor outlives the breaker.
    MSTMLLineBreaker(MSTMLContext& context, MSTMLCursor& cursor, int32_t maxWidth, bool isSingle)
        : context(context), cursor(cursor), maxWidth(maxWidth), isSingle(isSingle) {}

    /// Takes a line from the cursor's position on, a line break with the line that it ends. Takes one
    /// position at least, so it comes to the end. A line of no height, as that of an empty paragraph, is as
    /// high as its font.
    [[nodiscard]] MSTMLBrokenLine BreakLine();

private:
    [[nodiscard]] bool IsFull() const { return !isSingle && line.count > 0 && pen.GetEnd() > maxWidth; }
    void SkipBlanks();
    [[nodiscard]] bool TakeObject();
    [[nodiscard]] bool TakeChar();
    void Raise(int32_t ascent, int32_t descent) {
        line.ascent = std::max(line.ascent, ascent);
        line.descent = std::max(line.descent, descent);
    }

    MSTMLContext& context;
    MSTMLCursor& cursor;
    const int32_t maxWidth;
    const bool isSingle;

    // Of the line that is being taken.
    MTextPen pen;
    MSTMLBrokenLine line;
    char32_t last = 0;          ///< character, 0 before the first
    MSTMLBrokenLine upToBreak;  ///< the line as it would end at the last place to break it, if `hasBreak`
    MSTMLPosition behindBreak;
    bool hasBreak = false;
};
