#include "foundation/text/MMeasureText.h"

#include "foundation/text/MNumberText.h"
#include "foundation/text/MStringFormatter.h"

#include <cmath>

MString MDurationText(int64_t seconds) {
    constexpr int64_t Minute = 60;
    constexpr int64_t Hour = 60 * Minute;
    constexpr int64_t Day = 24 * Hour;
    if (seconds >= Day) return MFormat("{0} days, {1} hours", seconds / Day, seconds % Day / Hour);
    if (seconds >= Hour) return MFormat("{0} hours, {1} min", seconds / Hour, seconds % Hour / Minute);
    return MFormat("{0} min, {1} sec", seconds / Minute, seconds % Minute);
}

MString MMillisecondsText(double seconds) {
    constexpr double Zero = 1e-20;
    const double size = std::fabs(seconds);
    if (size <= Zero) return "0 ms";
    const int32_t decimals = size < 0.0001 ? 3 : size < 0.001 ? 2 : size < 0.01 ? 1 : 0;
    const double milliseconds = decimals > 0 ? seconds * 1000 : std::round(seconds * 1000);
    return MDoubleToText(milliseconds, decimals) + " ms";
}

MString MPercentText(double fraction) {
    return MFormat(std::fabs(fraction) < 0.01 ? "{0.2}%" : "{0.1}%", fraction * 100);
}
