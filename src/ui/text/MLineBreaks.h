#pragma once

/// What is behind the first checks of `MIsCombining` and `MMayBreakBetween`.
[[nodiscard]] bool MFindCombining(char32_t character);
[[nodiscard]] bool MFindBreak(char32_t left, char32_t right);

/// Whether a character stands on the one before it, as an accent by itself: the two are never parted. Of the
/// scripts that are readable without shaping.
[[nodiscard]] inline bool MIsCombining(char32_t character) {
    return character >= 0x300 && MFindCombining(character);
}

/// Whether a line may be broken between two characters of which neither is a blank: behind a space without
/// width, and beside an ideograph or a kana. No line begins with what closes or lengthens, and none ends with
/// what opens. The classes are those of Unicode's UAX #14, but Korean breaks at its blanks only, and so do
/// all scripts that have them.
[[nodiscard]] inline bool MMayBreakBetween(char32_t left, char32_t right) {
    return (left >= 0x200B || right >= 0x2E80) && MFindBreak(left, right);
}
