#include "foundation/values/MValueEnum.h"
#include "foundation/events/MThread.h"
#include "foundation/values/MValueList.h"
#include "foundation/xml/MXMLItem.h"

#include "tests/support/MTestText.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

enum class Season : uint8_t { Spring, Summer, Autumn, Winter };
constexpr const char* SeasonNames[] = {"Spring", "Summer", "Autumn", "Winter"};

}  // namespace

template <>
inline constexpr std::span<const char* const> MEnumNames<Season> = SeasonNames;

namespace {

TEST(MValueEnumTest, NamesAreReadIgnoringCaseAndUnknownOnesAreTheFirst) {
    const std::pair<const char*, Season> cases[] = {{"winter", Season::Winter},
                                                    {" SUMMER ", Season::Summer},
                                                    {"", Season::Spring},
                                                    {"Win", Season::Spring}};
    for (const auto& [text, result] : cases) {
        MValueEnum<Season> value("season", Season::Autumn);
        EXPECT_TRUE(value.SetText(text)) << text;
        EXPECT_EQ(value.Get(), result) << text;
        EXPECT_FALSE(value.SetText(text)) << text;
    }
    EXPECT_EQ(MValueEnum<MThread::Priority>::FromName("faster"), MThread::Priority::Idle);
    EXPECT_EQ(Text(MValueEnum<MThread::Priority>::ToName(MThread::Priority::Highest)), "Highest");
}

TEST(MValueEnumTest, TheNameIsSavedAndWhatIsOutOfRangeMended) {
    auto outside = static_cast<Season>(200);
    MValueEnum<Season> value("season", Season::Autumn);
    value.Bind(&outside);
    MXMLItem item("state");
    value.Save(item);
    EXPECT_EQ(Text(item.GetAttribute("season")), "Winter");
    value.Validate();
    EXPECT_EQ(outside, Season::Winter);
    value.Load(*item.AddSubItem("other"));
    EXPECT_EQ(outside, Season::Autumn);
    value.Load(item);
    EXPECT_EQ(outside, Season::Winter);
}

TEST(MValueEnumTest, StepsAndPositionsMoveAmongTheNames) {
    MValueEnum<Season> value("season", Season::Summer);
    EXPECT_EQ(value.GetDiscreteCount(), 4);
    EXPECT_DOUBLE_EQ(value.GetNormalized(), 1.0 / 3);
    EXPECT_TRUE(value.Step(std::numeric_limits<int32_t>::max(), true));
    EXPECT_EQ(value.Get(), Season::Winter);
    EXPECT_FALSE(value.StepBy(1));
    EXPECT_TRUE(value.Step(-2, false));
    EXPECT_EQ(value.Get(), Season::Summer);
    value.SetNormalized(0.6);
    EXPECT_EQ(value.Get(), Season::Autumn);
    value.SetNormalized(-1e300);
    EXPECT_EQ(value.Get(), Season::Spring);
    value.SetDiscreteIndex(99);
    EXPECT_EQ(value.GetDiscreteIndex(), 3);
}

TEST(MValueEnumTest, AListMayChangeAndBeEmpty) {
    static constexpr const char* Drives[] = {"C", "D", "E", "d"};
    MValueNameList value("drive", Drives, 4);
    EXPECT_TRUE(value.SetText("e"));
    EXPECT_EQ(value.Get(), 2);
    EXPECT_TRUE(value.SetText("d"));
    EXPECT_EQ(value.Get(), 1);
    value.SetDiscreteIndex(3);
    value.SetList(Drives, 2);
    EXPECT_EQ(Text(value.GetText()), "D");
    value.SetList(nullptr, 0);
    EXPECT_EQ(Text(value.GetText()), "");
    EXPECT_FALSE(value.SetText("C"));
    EXPECT_FALSE(value.Step(1, false));
    value.SetNormalized(1);
    EXPECT_EQ(value.GetNormalized(), 0);
    EXPECT_EQ(value.Get(), 0);
}

}  // namespace
