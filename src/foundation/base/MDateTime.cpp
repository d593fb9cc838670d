#include "foundation/base/MDateTime.h"

#include "foundation/base/MRaise.h"
#include "foundation/text/MStringScanner.h"

#include <iterator>

MString MTime::GetText() const {
    return MFormat("{0}:{1;02}:{2;02}", hours, minutes, seconds);
}

MString MTime::GetPaddedText() const {
    return MFormat("{0:02}:{1:02}:{2:02}", hours, minutes, seconds);
}

MString MTime::GetMachineText() const {
    return MFormat("{0:02}:{1:02}:{2:02}.{3}", hours, minutes, seconds, microseconds);
}

MTime MTime::Parse(const MString& text) {
    MTime time;
    MStringScanner("{0:02}:{1:02}:{2:02}.{3}", text)
        .Take(time.hours)
        .Take(time.minutes)
        .Take(time.seconds)
        .Take(time.microseconds);
    return time;
}

MString MDate::GetText() const {
    return MFormat("{2}.{1}.{0}", year, month, day);
}

MString MDate::GetMachineText() const {
    return MFormat("{0:04}-{1:02}-{2:02}", year, month, day);
}

MDate MDate::Parse(const MString& text) {
    MDate date;
    MStringScanner("{0:04}-{1:02}-{2:02}", text).Take(date.year).Take(date.month).Take(date.day);
    return date;
}

bool MDate::IsLeapYear(int32_t year) {
    return year > 0 && year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int32_t MDate::GetDayOfYear() const {
    constexpr int32_t PlainStarts[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
    constexpr int32_t LeapStarts[] = {0, 31, 60, 91, 121, 152, 182, 213, 244, 274, 305, 335};
    if (month < 1 || month > std::size(PlainStarts)) return 0;
    return (IsLeapYear(year) ? LeapStarts : PlainStarts)[month - 1] + day;
}

int64_t MDate::GetDayNumber() const {
    const int64_t y = year;
    return y * 365 + (y - 1) / 400 - (y - 1) / 100 + (y - 1) / 4 + GetDayOfYear() - 365;
}

MString MDateTime::GetText() const {
    return date.GetText() + " " + time.GetText();
}

MString MDateTime::GetMachineText() const {
    return date.GetMachineText() + " " + time.GetMachineText();
}

MDateTime MDateTime::Parse(const MString& text) {
    const MString trimmed = text.Trimmed();
    const int32_t space = trimmed.FindChar(' ');
    if (space == MString::NotFound) MRaise(MExceptionGeneral, "Invalid datetime format.");
    return {.time = MTime::Parse(trimmed.Substring(space + 1)),
            .date = MDate::Parse(trimmed.Substring(0, space))};
}

int64_t MDateTime::GetSeconds() const {
    return date.GetDayNumber() * MTime::SecondsPerDay + time.GetSecondsOfDay();
}

int64_t MDateTime::GetMicroseconds() const {
    return date.GetDayNumber() * MTime::SecondsPerDay * MTime::MicrosecondsPerSecond +
           time.GetMicrosecondsOfDay();
}
