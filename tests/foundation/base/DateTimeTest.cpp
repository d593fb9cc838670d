#include "foundation/base/MDateTime.h"
#include "foundation/text/MMeasureText.h"

#include "tests/support/MTestText.h"

#include <chrono>
#include <cstdlib>
#include <ctime>

namespace {

TEST(DateTimeTest, TextsAreWrittenAndRead) {
    const MDateTime moment = MDateTime::Parse(" \t2024-02-29 09:05:07.250000\n");
    EXPECT_EQ(Text(moment.GetMachineText()), "2024-02-29 09:05:07.250000");
    EXPECT_EQ(Text(moment.GetText()), "29.2.2024 9:05:07");
    EXPECT_EQ(Text(moment.time.GetPaddedText()), "09:05:07");
    EXPECT_EQ(FailureOf([] { (void)MDateTime::Parse("  2024-02-29  "); }), "0: Invalid datetime format.");
    EXPECT_EQ(Text(MDateTime::Parse("2024 12").GetMachineText()), "2024-00-00 12:00:00.0");
}

TEST(DateTimeTest, DayNumbersCountEveryDayOfFourCenturies) {
    using namespace std::chrono;
    int64_t number = MDate{1599, 12, 31}.GetDayNumber();
    for (uint16_t y = 1600; y <= 2000; ++y)
        for (uint8_t m = 1; m <= 12; ++m) {
            const unsigned last{(year{y} / m / std::chrono::last).day()};
            for (uint8_t d = 1; d <= last; ++d)
                ASSERT_EQ((MDate{y, m, d}.GetDayNumber()), ++number) << y << "-" << int{m} << "-" << int{d};
        }
    EXPECT_FALSE(MDate::IsLeapYear(0));
    EXPECT_EQ((MDate{2023, 13, 5}.GetDayOfYear()), 0);
}

TEST(DateTimeTest, ScalesMatchTheClock) {
    const MDateTime moment{{1, 2, 3, 4}, {1, 1, 1}};
    EXPECT_EQ(moment.GetSeconds(), 86400 + 3723);
    EXPECT_EQ(moment.GetMicroseconds(), (86400 + 3723) * int64_t{1000000} + 4);
    const MDateTime epoch{{}, {1970, 1, 1}};
    EXPECT_LE(std::llabs(MDateTime::NowUTC().GetSeconds() - epoch.GetSeconds() - std::time(nullptr)), 5);
    EXPECT_LE(std::llabs(MDateTime::NowLocal().GetSeconds() - MDateTime::NowUTC().GetSeconds()), 15 * 3600);
}

TEST(MeasureTextTest, DurationsNameTheirTwoLargestUnits) {
    const std::pair<int64_t, const char*> cases[] = {{59, "0 min, 59 sec"},
                                                     {3599, "59 min, 59 sec"},
                                                     {3600, "1 hours, 0 min"},
                                                     {2 * 86400 + 5 * 3600 + 59, "2 days, 5 hours"}};
    for (const auto& [seconds, text] : cases) EXPECT_EQ(Text(MDurationText(seconds)), text);
}

}  // namespace
