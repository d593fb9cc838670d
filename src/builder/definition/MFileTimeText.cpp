#include "builder/definition/MFileTimeText.h"

#include "foundation/base/MDateTime.h"
#include "foundation/text/MNumberText.h"

#include <chrono>

namespace {

MString GetDigits(int64_t value, int32_t width) {
    return MNumberToText(value, {.width = width, .pad = '0'});
}

}  // namespace

MString MFileTimeToText(int64_t time) {
    using namespace std::chrono;
    const sys_seconds seconds = floor<std::chrono::seconds>(sys_time<microseconds>(microseconds(time)));
    const sys_days day = floor<days>(seconds);
    const year_month_day date(day);
    const hh_mm_ss clock(seconds - day);
    return GetDigits(static_cast<int>(date.year()), 4) + "-" +
           GetDigits(static_cast<unsigned>(date.month()), 2) + "-" +
           GetDigits(static_cast<unsigned>(date.day()), 2) + " " + GetDigits(clock.hours().count(), 2) + ":" +
           GetDigits(clock.minutes().count(), 2) + ":" + GetDigits(clock.seconds().count(), 2);
}

int64_t MFileTimeFromText(const MString& text) {
    MDateTime epoch;
    epoch.date = {1970, 1, 1};
    return MDateTime::Parse(text).GetMicroseconds() - epoch.GetMicroseconds();
}
