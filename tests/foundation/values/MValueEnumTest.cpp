#include "foundation/values/MValueEnum.h"
#include "foundation/events/MThread.h"
#include "foundation/values/MValueList.h"
#include "foundation/xml/MXMLItem.h"

#include "tests/support/MTestText.h"

#include <limits>

namespace {

/// From "Idle" to "Critical", with "Normal" in the middle.
using Priority = MThread::Priority;

TEST(MValueEnumTest, NamesAreReadIgnoringCaseAndUnknownOnesAreTheFirst) {
    const std::pair<const char*, Priority> cases[] = {{"critical", Priority::Critical},
                                                      {" LOW ", Priority::Low},
                                                      {"", Priority::Idle},
                                                      {"Lo", Priority::Idle}};
    for (const auto& [text, result] : cases) {
        MValueEnum<Priority> value("priority", Priority::High);
        EXPECT_TRUE(value.SetText(text)) << text;
        EXPECT_EQ(value.Get(), result) << text;
        EXPECT_FALSE(value.SetText(text)) << text;
    }
    EXPECT_EQ(MValueEnum<Priority>::FromName("faster"), Priority::Idle);
    EXPECT_EQ(Text(MValueEnum<Priority>::ToName(Priority::Highest)), "Highest");
}

TEST(MValueEnumTest, TheNameIsSavedAndWhatIsOutOfRangeMended) {
    auto outside = static_cast<Priority>(200);
    MValueEnum<Priority> value("priority", Priority::Low);
    value.Bind(&outside);
    MXMLItem item("state");
    value.Save(item);
    EXPECT_EQ(Text(item.GetAttribute("priority")), "Critical");
    value.Validate();
    EXPECT_EQ(outside, Priority::Critical);
    value.Load(*item.AddSubItem("other"));
    EXPECT_EQ(outside, Priority::Low);
    value.Load(item);
    EXPECT_EQ(outside, Priority::Critical);
}

TEST(MValueEnumTest, StepsAndPositionsMoveAmongTheNames) {
    MValueEnum<Priority> value("priority", Priority::Low);
    EXPECT_EQ(value.GetDiscreteCount(), 7);
    EXPECT_DOUBLE_EQ(value.GetNormalized(), 2.0 / 6);
    EXPECT_TRUE(value.Step(std::numeric_limits<int32_t>::max(), true));
    EXPECT_FALSE(value.StepBy(1));
    EXPECT_TRUE(value.Step(-2, false));
    EXPECT_EQ(value.Get(), Priority::High);
    for (const auto& [position, result] : {std::pair{0.6, Priority::High}, {-1e300, Priority::Idle}}) {
        value.SetNormalized(position);
        EXPECT_EQ(value.Get(), result);
    }
    value.SetDiscreteIndex(99);
    EXPECT_EQ(value.Get(), Priority::Critical);
}

TEST(MValueEnumTest, AListMayChangeAndBeEmpty) {
    static constexpr const char* Drives[] = {"C", "D", "E", "d"};
    MValueNameList value("drive", Drives, 4);
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
