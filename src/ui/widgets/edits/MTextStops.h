#pragma once

#include "ui/widgets/edits/MEditText.h"
#include "ui/widgets/edits/MTextRange.h"

// Where a cursor can stand in a text: between characters, of which a surrogate pair is one, with the marks and
// joiners that follow it. Words are runs of letters and digits, of other signs, or of ideographs and whatever
// lies beyond ASCII; a line break is by itself.

/// Whether a character belongs to the one before it.
[[nodiscard]] bool MIsAttached(char32_t previous, char32_t character);
/// The last stop that is not behind an index, which is cut to the text.
[[nodiscard]] int32_t MGetStopAt(const MEditText& text, int32_t index);
/// From one stop to its neighbours; at the ends of the text the index itself.
[[nodiscard]] int32_t MGetNextStop(const MEditText& text, int32_t index);
[[nodiscard]] int32_t MGetPreviousStop(const MEditText& text, int32_t index);
/// Where the next word begins, and where this one or the one before does.
[[nodiscard]] int32_t MGetNextWord(const MEditText& text, int32_t index);
[[nodiscard]] int32_t MGetPreviousWord(const MEditText& text, int32_t index);
/// The word, the blanks or the line break that a unit belongs to; of the last one at the end.
[[nodiscard]] MTextRange MGetWordAt(const MEditText& text, int32_t index);
