#include "foundation/base/MDateTime.h"

#include <chrono>
#include <ctime>

namespace {

MDateTime FromClock(tm* (*convert)(const time_t*, tm*)) {
    using namespace std::chrono;
    const auto now = time_point_cast<milliseconds>(system_clock::now());
    const auto second = floor<seconds>(now);
    const time_t stamp = system_clock::to_time_t(second);
    tm parts{};
    convert(&stamp, &parts);
    return {.time = {.hours = static_cast<uint8_t>(parts.tm_hour),
                     .minutes = static_cast<uint8_t>(parts.tm_min),
                     .seconds = static_cast<uint8_t>(parts.tm_sec),
                     .microseconds = static_cast<int32_t>((now - second).count()) * 1000},
            .date = {.year = static_cast<uint16_t>(parts.tm_year + 1900),
                     .month = static_cast<uint8_t>(parts.tm_mon + 1),
                     .day = static_cast<uint8_t>(parts.tm_mday)}};
}

}  // namespace

MDateTime MDateTime::NowUTC() {
    return FromClock(gmtime_r);
}

MDateTime MDateTime::NowLocal() {
    return FromClock(localtime_r);
}
