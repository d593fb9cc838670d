#include "update/MDownloadSpeed.h"

#include <algorithm>

bool MDownloadSpeed::Add(int64_t bytes, double seconds) {
    constexpr int32_t PartsShown = 4;
    constexpr double ShortestTime = 0.0001;
    sum += static_cast<double>(bytes) / std::max(seconds, ShortestTime);
    if (++partCount < PartsShown) return false;

    const bool isFirst = shown == 0;
    shown = sum / (isFirst ? PartsShown : PartsShown + 1);
    sum = shown;
    partCount = 0;
    return true;
}
