#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

/// Characters, kept as the runs that they make: a font has tens of thousands of characters and a few hundred
/// runs.
class MCharacterSet {
public:
    /// Adds a character. They come in ascending order; one that does not is left out.
    void Append(char32_t character) {
        if (!runs.empty() && character <= runs.back().last) return;
        if (runs.empty() || character != runs.back().last + 1) runs.push_back({character, character});
        runs.back().last = character;
    }
    [[nodiscard]] bool Contains(char32_t character) const {
        const auto run = std::ranges::lower_bound(runs, character, {}, &Run::last);
        return run != runs.end() && run->first <= character;
    }

private:
    struct Run {
        char32_t first;
        char32_t last;
    };

    std::vector<Run> runs;
};
