#pragma once

#include <cstdint>

/// A part of a text: from its first unit to the one behind its last.
struct MTextRange {
    int32_t start = 0;
    int32_t end = 0;

    [[nodiscard]] bool IsEmpty() const { return end <= start; }
    [[nodiscard]] int32_t GetLength() const { return end - start; }
    friend bool operator==(const MTextRange&, const MTextRange&) = default;
};
