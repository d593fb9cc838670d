#pragma once

#include <cstdint>

/// The speed that a download shows: the mean of four parts' speeds and of what was shown before, so that one
/// slow part does not make it jump.
class MDownloadSpeed {
public:
    /// Takes a part into account. True if there is a new speed to be shown.
    bool Add(int64_t bytes, double seconds);
    /// In bytes per second; 0 before the first four parts.
    [[nodiscard]] int64_t Get() const { return static_cast<int64_t>(shown); }

private:
    double shown = 0;
    double sum = 0;
    int32_t partCount = 0;
};
