#pragma once

#include "foundation/text/MCharFilter.h"
#include "ui/widgets/edits/MEditHistory.h"
#include "ui/widgets/edits/MEditText.h"
#include "ui/widgets/edits/MTextStops.h"

#include <functional>

/// At `start`, so many units were replaced by so many others.
struct MEditChange {
    int32_t start = 0;
    int32_t removed = 0;
    int32_t inserted = 0;
};

/// The text of an edit with its cursor and selection, as it is changed by a user: within limits, and so that it
/// can be undone.
///
/// The text has no control characters but tabs and line feeds, which all other line breaks become; in a single
/// line they become spaces. Cursor and anchor are stops (MTextStops.h); what lies between them is selected.
class MEditDocument final {
public:
    using Kind = MEditHistory::Kind;
    enum class Anchor { Moves, Stays };

    [[nodiscard]] const MEditText& GetText() const { return text; }
    [[nodiscard]] int32_t GetLength() const { return text.GetLength(); }
    [[nodiscard]] int32_t GetCursor() const { return cursor; }
    [[nodiscard]] MTextRange GetSelection() const;
    [[nodiscard]] MString GetSelectedText() const;

    /// Replaces all of it, without filter, and forgets what was done. Cursor and anchor stay as far as they can.
    void SetText(const MString& newText);
    void Select(int32_t newAnchor, int32_t newCursor);
    /// What stays between the anchor and the new place of the cursor is selected.
    void MoveCursor(int32_t newCursor, Anchor behaviour);

    // What a user does. These return whether the text has changed.

    /// Replaces what is selected by what filter and limit let through.
    bool Insert(const MString& added, Kind kind);
    /// Removes what is selected, or what lies between the cursor and another place.
    bool Remove(int32_t to, Kind kind);
    bool Undo() { return Apply(history.Undo(), Direction::Back); }
    bool Redo() { return Apply(history.Redo(), Direction::Forth); }

    /// Units; a longer text is cut.
    void SetMaximumLength(int32_t newLength);
    [[nodiscard]] int32_t GetMaximumLength() const { return maximumLength; }
    void SetMultiLine(bool newIsMultiLine);
    [[nodiscard]] bool IsMultiLine() const { return isMultiLine; }
    /// What a user may insert; null for everything. Not owned.
    const MCharFilter::Interface* filter = nullptr;
    /// Hears of each change of the text, when that is done and the cursor in its place.
    std::function<void(const MEditChange&)> onReplaced;

private:
    enum class Direction { Back, Forth };

    [[nodiscard]] MString Clean(const MString& raw) const;
    /// The beginning of a text that has room where `count` units go.
    [[nodiscard]] MString Fit(const MString& added, int32_t count) const;
    void Replace(MTextRange range, const MString& added);
    bool Apply(const MEditStep* step, Direction direction);

    MEditText text;
    int32_t cursor = 0;
    int32_t anchor = 0;
    MEditHistory history;
    int32_t maximumLength = MEditText::MaximumLength;
    bool isMultiLine = false;
};
