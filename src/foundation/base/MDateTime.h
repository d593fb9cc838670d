#pragma once

#include "foundation/text/MString.h"

#include <cstdint>

/// A time of day.
struct MTime {
    uint8_t hours = 0;
    uint8_t minutes = 0;
    uint8_t seconds = 0;
    int32_t microseconds = 0;

    static constexpr int64_t SecondsPerDay = 86'400;
    static constexpr int64_t MicrosecondsPerSecond = 1'000'000;

    /// "{0}:{1;02}:{2;02}", hours first.
    [[nodiscard]] MString GetText() const;
    /// "{0:02}:{1:02}:{2:02}", hours first.
    [[nodiscard]] MString GetPaddedText() const;
    /// "{0:02}:{1:02}:{2:02}.{3}", the microseconds last; `Parse` reads it. What is missing stays 0.
    [[nodiscard]] MString GetMachineText() const;
    [[nodiscard]] static MTime Parse(const MString& text);

    [[nodiscard]] int64_t GetSecondsOfDay() const { return hours * 3600 + minutes * 60 + seconds; }
    [[nodiscard]] int64_t GetMicrosecondsOfDay() const {
        return GetSecondsOfDay() * MicrosecondsPerSecond + microseconds;
    }
};

/// A day of the Gregorian calendar; months and days count from 1.
struct MDate {
    uint16_t year = 0;
    uint8_t month = 0;
    uint8_t day = 0;

    /// "{2}.{1}.{0}": day, month, year.
    [[nodiscard]] MString GetText() const;
    /// "{0:04}-{1:02}-{2:02}", year first; `Parse` reads it. What is missing stays 0.
    [[nodiscard]] MString GetMachineText() const;
    [[nodiscard]] static MDate Parse(const MString& text);

    [[nodiscard]] static bool IsLeapYear(int32_t year);
    /// 1 for the first of January; 0 for a month outside 1 to 12.
    [[nodiscard]] int32_t GetDayOfYear() const;
    /// Days on one scale for all years.
    [[nodiscard]] int64_t GetDayNumber() const;
};

struct MDateTime {
    MTime time;
    MDate date;

    /// The system clock, to the millisecond.
    [[nodiscard]] static MDateTime NowUTC();
    [[nodiscard]] static MDateTime NowLocal();

    /// Date, one space, time.
    [[nodiscard]] MString GetText() const;
    [[nodiscard]] MString GetMachineText() const;
    /// Reads the machine text, with blanks around it. Raises "Invalid datetime format." (0) if no space
    /// parts date and time.
    [[nodiscard]] static MDateTime Parse(const MString& text);

    /// Since the beginning of day 0.
    [[nodiscard]] int64_t GetSeconds() const;
    [[nodiscard]] int64_t GetMicroseconds() const;
};
