#include "foundation/values/MValueList.h"
#include "foundation/values/MValueVolume.h"
#include "foundation/xml/MXMLItem.h"
#include "tests/ui/widgets/WidgetFixture.h"
#include "ui/widgets/values/MKnob.h"
#include "ui/widgets/values/MProgressBar.h"
#include "ui/widgets/values/MSelector.h"
#include "ui/widgets/values/MSwitcher.h"
#include "ui/widgets/values/MTracker.h"
#include "ui/widgets/values/MValueButton.h"

#include <random>

namespace {

class MControlValueTest : public WidgetTest {
protected:
    ~MControlValueTest() noexcept override = default;

    /// A control of a class, named "v", with the value in its middle.
    template <class Widget>
    Widget& AddValue() {
        auto& widget = Add<Widget>(MRect::FromSize(10, 10, 101, 80), "v");
        widget.SetValue(&value);
        return widget;
    }
    MValueDouble value{"value", 0, 100, 50};
};

/// What the help of every value control says.
TEST_F(MControlValueTest, ChangesAsItsHelpSays) {
    const std::function<MControlValue&()> kinds[] = {
        [&]() -> MControlValue& { return AddValue<MKnob>(); },
        [&]() -> MControlValue& { return AddValue<MRotator>(); },
        [&]() -> MControlValue& { return AddValue<MValueButton>(); },
        [&]() -> MControlValue& { return AddValue<MTracker>(); }};
    for (const auto& makeControl : kinds) {
        MControlValue& control = makeControl();
        Open(root);
        control.SetFocus();
        Take();
        const auto drag = [&](MPoint way, MKeyModifiers button, MKeyModifiers held) {
            user.HoldKeys(held);
            Press(control, button);
            user.MoveMouse(At(control, way));
            user.ReleaseButton(button);
            user.HoldKeys(MModifierNone);
            system.AdvanceTime(1000);
        };
        const auto dragAndHit = [&](int32_t key) {
            Press(control);
            user.MoveMouse(At(control, {20, -20}));
            EXPECT_NE(value.Get(), 50);
            user.PressKey(key);
            user.MoveMouse(At(control, {30, -30}));
            user.ReleaseButton();
            system.AdvanceTime(1000);
        };
        answer = "25";
        const struct {
            const char* what;
            std::function<void()> act;
            double least;
            double most;
        } cases[] = {
            {"drag",
             [&] {
                 drag({20, -20}, MModifierLeftButton, MModifierNone);
             },
             59, 71},
            {"with Ctrl",
             [&] {
                 drag({0, -20}, MModifierLeftButton, MModifierControl);
             },
             51, 51},
            {"middle button",
             [&] {
                 drag({0, 20}, MModifierMiddleButton, MModifierNone);
             },
             49, 49},
            {"right button", [&] { value.Set(7), user.Click(At(control), 1, MModifierRightButton); }, 50, 50},
            {"wheel", [&] { user.MoveMouse(At(control)), user.TurnWheel(240); }, 52, 52},
            {"up", [&] { user.PressKey(MKeyUp); }, 51, 51},
            {"left", [&] { user.PressKey(MKeyLeft); }, 49, 49},
            {"home", [&] { user.PressKey(MKeyHome); }, 0, 0},
            {"end", [&] { user.PressKey(MKeyEnd); }, 100, 100},
            {"escape", [&] { dragAndHit(MKeyEscape); }, 50, 50},
            {"backspace", [&] { dragAndHit(MKeyBackspace); }, 50, 50},
            {"shift", [&] { drag({}, MModifierLeftButton, MModifierShift); }, 25, 25},
            {"double click", [&] { user.Click(At(control), 2), system.AdvanceTime(1000); }, 25, 25},
            {"space", [&] { user.PressKey(MKeySpace); }, 25, 25},
        };
        for (const auto& [what, act, least, most] : cases) {
            SCOPED_TRACE(std::string(what) + " of class " +
                         std::to_string(static_cast<int>(control.GetControlType())));
            value.Set(50);
            Take();
            asked = "";
            act();
            EXPECT_GE(value.Get(), least - 1e-9);
            EXPECT_LE(value.Get(), most + 1e-9);
            const std::string told = Take();
            EXPECT_NE(told.find("v:change"), std::string::npos);
            EXPECT_EQ(told.find("v:commit"), told.rfind("v:commit")) << "once, at the end";
            EXPECT_NE(told.find("v:commit"), std::string::npos);
            EXPECT_EQ(asked, least == 25 ? "Enter new value: 50.0000" : "") << what;
            EXPECT_EQ(root.GetCapture(), nullptr);
        }
        EXPECT_TRUE(system.IsVisible(root)) << "escape was for the drag";
        delete &control;
    }
}

TEST_F(MControlValueTest, DragsBothEndsOfATracker) {
    auto& tracker = AddValue<MTracker>();
    MValueDouble maximum("max", 0, 100, 100);
    tracker.SetMaxValue(&maximum);
    Open(root);
    std::mt19937 random(1);
    const auto pointAt = [&](double at) {
        return tracker.GetScreenPoint({static_cast<int32_t>(at), tracker.size.y / 2});
    };
    for (int32_t round = 0; round < 300; ++round) {
        value.Set(0);
        maximum.Set(100);
        const double low = random() % 101;
        const double high = low + random() % (101 - static_cast<uint32_t>(low));
        maximum.Set(high);
        value.Set(low);
        const double from = random() % 101;
        const double to = random() % 101;
        user.MoveMouse(pointAt(from));
        user.PressButton();
        user.MoveMouse(pointAt(to));
        user.ReleaseButton();
        system.AdvanceTime(1000);
        ASSERT_LE(value.Get(), maximum.Get() + 1e-9);
        const bool isMaximumMoved = maximum.Get() != high;
        ASSERT_TRUE(!isMaximumMoved || value.Get() == low) << "one of them alone";
        ASSERT_FALSE(isMaximumMoved && std::abs(from - low) < std::abs(from - high)) << "the nearer one";
        ASSERT_FALSE(value.Get() != low && std::abs(from - low) > std::abs(from - high));
    }
    value.Set(50);
    maximum.Set(60);
    user.HoldKeys(MModifierShift);
    user.PressKey(MKeyRight);
    answer = "10";
    user.PressKey(MKeySpace);
    user.HoldKeys(MModifierNone);
    EXPECT_EQ(asked, "Enter new maximum value: 61.0000");
    EXPECT_EQ(maximum.Get(), 50) << "no further than to the other end";
    user.PressKey(MKeyEnd);
    EXPECT_EQ(value.Get(), 50);

    tracker.Set(MControlFlag::SaveValue);
    value.Set(20);
    maximum.Set(30);
    MXMLItem state("state");
    EXPECT_TRUE(root.SaveState(state));
    value.Set(90);
    maximum.Set(95);
    root.LoadState(state);
    EXPECT_EQ(std::pair(value.Get(), maximum.Get()), std::pair(20.0, 30.0));
}

TEST_F(MControlValueTest, EndsADragThatTheWindowLoses) {
    auto& knob = AddValue<MKnob>();
    Open(root);
    Press(knob);
    user.MoveMouse(At(knob, {0, -20}));
    system.ActivateOtherProgram("other");
    knob.OnCaptureLost();
    const double before = value.Get();
    Take();
    user.MoveMouse(At(knob, {0, -60}));
    EXPECT_EQ(value.Get(), before);
    user.ReleaseButton();
    EXPECT_EQ(Take(), "");
}

TEST_F(MControlValueTest, GoesThroughNames) {
    const char* const names[] = {"one", "two", "three"};
    MValueNameList list;
    list.SetList(names, 3);
    auto& selector = Add<MSelector>(MRect::FromSize(10, 10, 200, 24), "s");
    auto& switcher = Add<MSwitcher>(MRect::FromSize(10, 40, 150, 24), "w");
    for (MControlValue* control :
         {static_cast<MControlValue*>(&selector), static_cast<MControlValue*>(&switcher)})
        control->SetValue(&list);
    Open(root);
    const auto click = [&](MControl& parent, int32_t child) {
        user.Click(At(*parent.GetChildren()[child]));
        system.AdvanceTime(1000);
        return Text(list.GetText()) + " " + Take();
    };
    EXPECT_EQ(click(selector, 2), "three s:change s:commit");
    EXPECT_EQ(click(selector, 2), "three ") << "it is on";
    user.PressKey(MKeyLeft);
    EXPECT_TRUE(selector.GetChildren()[1]->HasFocus());
    EXPECT_EQ(Text(list.GetText()), "two");
    user.PressKey(MKeyTab);
    EXPECT_TRUE(switcher.HasFocus()) << "the row of buttons is one stop";
    switcher.OnValueChanged();
    Take();
    EXPECT_EQ(click(switcher, 0), "three w:change w:commit");
    EXPECT_FALSE(switcher.GetChildren()[0]->IsEnabled()) << "there is none behind it";
    EXPECT_EQ(click(switcher, 1), "two w:change w:commit");
    user.PressKey(MKeyDown);
    EXPECT_EQ(Text(list.GetText()), "one");

    // The menu of all names, by a click and by the keyboard.
    Take();
    user.Click(switcher.GetScreenPoint({20, 12}));
    system.AdvanceTime(1000);
    for (const int32_t key : {MKeyEnd, MKeyEnter}) user.PressKey(key);
    EXPECT_EQ(Text(list.GetText()) + " " + Take(), "three w:change w:commit");
    EXPECT_TRUE(switcher.HasFocus());
    for (const char* name : {"two", "one"}) {
        user.PressKey(MKeySpace);
        for (const int32_t key : {MKeyUp, MKeyEnter}) user.PressKey(key);
        EXPECT_EQ(Text(list.GetText()), name) << "it begins on the present one";
    }
    EXPECT_EQ(asked, "") << "as text where there is no menu";
}

TEST_F(MControlValueTest, IsAsWideAsItsWidestText) {
    MValueVolume volume;
    auto& button = Add<MValueButton>({10, 10, 20, 20}, "b");
    button.SetValue(&volume);
    Open(root);
    int32_t width = 0;
    int32_t height = 0;
    button.GetMinimalContentSize(width, height);
    const double before = volume.Get();
    volume.Set(0);
    int32_t silent = 0;
    button.GetMinimalContentSize(silent, height);
    EXPECT_EQ(width, silent);
    EXPECT_EQ(Text(volume.GetText()), "silence");
    EXPECT_EQ(before, 1);
}

TEST_F(MControlValueTest, PaintsAProgressOnlyWhenItMoves) {
    auto& bar = Add<MProgressBar>(MRect::FromSize(10, 10, 100, 14), "p");
    Open(root);
    root.RedrawNow();
    const auto& style = static_cast<MPlainStyle&>(*windows.GetStyle());
    const int64_t before = style.CountPaints();
    for (int32_t i = 0; i < 100'000; ++i) bar.SetProgress(1e9, i);
    EXPECT_LE(style.CountPaints() - before, 4);
    bar.SetProgress(10, 20);
    EXPECT_EQ(bar.GetPercent(), 100);
    bar.SetPercent(std::nan(""));
    EXPECT_EQ(bar.GetPercent(), 0);
}

}  // namespace
