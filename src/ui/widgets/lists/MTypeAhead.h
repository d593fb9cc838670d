#pragma once

#include "foundation/text/MString.h"

#include <cstdint>
#include <functional>

/// Finds rows by the letters that they begin with, as the user types them. Letters that follow one another soon
/// enough are the beginning of one text; the same letter again and again goes on to the next row that begins
/// with it.
class MTypeAhead final {
public:
    /// How long letters belong together, in milliseconds.
    static constexpr int64_t Patience = 1000;

    /// Takes a unit of UTF-16 typed at a time. Returns the row that is meant, counted on from `current` and from
    /// the first one again behind the last, or -1. Rows that `getText` gives no text for are never meant.
    [[nodiscard]] int32_t Type(char16_t unit, int64_t time, int32_t current, int32_t count,
                               const std::function<MString(int32_t)>& getText);
    /// Whether a text has been begun that a space would belong to.
    [[nodiscard]] bool IsTyping(int64_t time) const { return !typed.IsEmpty() && time - lastTime < Patience; }

private:
    MString typed;
    int64_t lastTime = 0;
};
