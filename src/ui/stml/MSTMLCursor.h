#pragma once

#include "foundation/text/MUnicode.h"
#include "ui/stml/MSTMLRun.h"
#include "ui/text/MFont.h"

#include <cstdint>

/// A place in a paragraph: of a run, and of a unit if that is text.
struct MSTMLPosition {
    int32_t run = 0;
    int32_t index = 0;
};

/// Goes along the characters and objects of a paragraph, from run to run. Each object counts as one position,
/// a surrogate pair too. A tabulator is a space. Text for which the drawer has no font is passed over.
class MSTMLCursor {
public:
    /// All of them outlive the cursor.
    MSTMLCursor(MSTMLContext& context, const MSTMLRunList& runs, bool isInverted)
        : context(context), runs(runs), isInverted(isInverted) {
        EnterRun();
    }

    [[nodiscard]] bool AtEnd() const { return run == nullptr; }
    /// Whether a character comes next, and no object.
    [[nodiscard]] bool IsText() const { return !run->object; }
    [[nodiscard]] char32_t NextChar() {
        const char32_t character = MTakeCodePoint(run->text, position.index);
        if (position.index == run->text.GetLength()) Leave();
        return character == '\t' ? U' ' : character;
    }
    [[nodiscard]] MSTMLObject& NextObject() {
        MSTMLObject& object = *run->object;
        Leave();
        return object;
    }
    void Seek(MSTMLPosition newPosition);
    [[nodiscard]] MSTMLPosition GetPosition() const { return position; }

    /// Font and colour of the character that comes next.
    [[nodiscard]] MFont& GetFont() const { return *font; }
    [[nodiscard]] MColor GetColor() const { return color; }
    /// The font of the text at the position, also if there is none; null if the drawer has none.
    [[nodiscard]] MFont* FindFont() const;
    /// Whether the object that comes next is in inverted colours.
    [[nodiscard]] bool IsObjectInverted() const { return isInverted != run->look.isInverted; }

private:
    void EnterRun();
    void Leave() {
        ++position.run;
        position.index = 0;
        EnterRun();
    }

    MSTMLContext& context;
    const MSTMLRunList& runs;
    const bool isInverted;
    MSTMLPosition position;
    const MSTMLRun* run = nullptr;  ///< that of the position; null at the end
    MFont* font = nullptr;          ///< of the run, if that is text
    MColor color;
};
