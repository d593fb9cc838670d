#pragma once

#include "foundation/text/MString.h"

#include <cstdint>
#include <vector>

/// A text that is changed again and again at about the same place. It lies in a block with a gap where it was
/// changed last, so that typing into a long text costs no more than typing into a short one.
///
/// Indices and lengths are in units of UTF-16.
class MEditText final {
public:
    static constexpr int32_t MaximumLength = 1 << 28;

    [[nodiscard]] int32_t GetLength() const { return static_cast<int32_t>(units.size()) - gapLength; }
    /// The index is not range-checked.
    [[nodiscard]] MChar operator[](int32_t index) const {
        return units[static_cast<size_t>(index < gapStart ? index : index + gapLength)];
    }
    /// A part of the text, which has to lie in it.
    [[nodiscard]] MString GetText(int32_t start, int32_t count) const;
    [[nodiscard]] MString GetText() const { return GetText(0, GetLength()); }
    /// Replaces a part, which has to lie in the text.
    void Replace(int32_t start, int32_t count, const MString& text);

private:
    void MoveGap(int32_t start);

    std::vector<char16_t> units;
    int32_t gapStart = 0;
    int32_t gapLength = 0;
};
