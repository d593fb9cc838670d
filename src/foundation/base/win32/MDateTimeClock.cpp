#include "foundation/base/MDateTime.h"

#include "foundation/win32/MWindowsHeader.h"

namespace {

MDateTime FromSystemTime(const SYSTEMTIME& now) {
    return {.time = {.hours = static_cast<uint8_t>(now.wHour),
                     .minutes = static_cast<uint8_t>(now.wMinute),
                     .seconds = static_cast<uint8_t>(now.wSecond),
                     .microseconds = now.wMilliseconds * 1000},
            .date = {.year = now.wYear,
                     .month = static_cast<uint8_t>(now.wMonth),
                     .day = static_cast<uint8_t>(now.wDay)}};
}

}  // namespace

MDateTime MDateTime::NowUTC() {
    SYSTEMTIME now;
    GetSystemTime(&now);
    return FromSystemTime(now);
}

MDateTime MDateTime::NowLocal() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    return FromSystemTime(now);
}
