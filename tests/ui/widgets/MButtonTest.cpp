#include "foundation/xml/MXMLItem.h"
#include "tests/ui/widgets/WidgetFixture.h"
#include "ui/widgets/buttons/MRepeaterButton.h"

#include <random>

namespace {

class MButtonTest : public WidgetTest {
public:
    /// Ends the button from its own click.
    void EndIt(const MOnClickParams& params) { delete params.control; }
};

TEST_F(MButtonTest, ClicksOnceInEachWay) {
    auto& button = Add<MButton>({10, 10, 89, 33}, "button");
    Open(root);
    user.Click(At(button));
    user.PressKey(MKeyEnter);
    user.PressKey(MKeySpace);
    EXPECT_EQ(Take(), "button:click button:click button:click");
    user.Click(At(button), 3);
    EXPECT_EQ(Take(), "button:click button:click button:click") << "double clicks count as clicks";

    Press(button);
    EXPECT_TRUE(button.GetDrawState() & MDrawClicked);
    user.MoveMouse(At(button, {0, 50}));
    EXPECT_FALSE(button.GetDrawState() & MDrawClicked) << "releasing here does nothing";
    user.ReleaseButton();
    button.SetEnabled(false);
    user.Click(At(button));
    EXPECT_EQ(Take(), "");
    button.SetEnabled(true);
    root.DispatchEvent({.type = MEventType::KeyUp, .key = MKeyEnter});
    EXPECT_EQ(Take(), "") << "the key was pressed in a window that is gone";

    button.OnClick(MControl::Click::Left).Connect<MButtonTest>(this, &MButtonTest::EndIt);
    button.SetModalValue(MModalValue::Ok);
    user.Click(At(button));
    EXPECT_EQ(root.GetChildren().GetCount(), 0);
    EXPECT_TRUE(system.IsVisible(root)) << "nobody is left to close it";
}

TEST_F(MButtonTest, AnswersEnterForTheWholeWindow) {
    auto& other = Add<MButton>({10, 10, 89, 33}, "other");
    auto& button = Add<MButton>({10, 50, 89, 73}, "default");
    auto& probe = *new Probe(&root, "probe", log);
    Place(probe, {10, 90, 89, 113});
    button.SetDefault(true);
    button.SetModalValue(MModalValue::Yes);
    Prepare(root);
    const struct {
        const char* what;
        std::function<void()> prepare;
        bool isAnswered;
    } cases[] = {{"a button with the focus takes it", [&] { other.SetFocus(); }, false},
                 {"so does whoever consumes it", [&] { probe.SetFocus(), probe.takes = true; }, false},
                 {"disabled", [&] { probe.takes = false, button.SetEnabled(false); }, false},
                 {"nobody takes it", [&] { button.SetEnabled(true); }, true}};
    system.Post([&] {
        for (const auto& [what, prepare, isAnswered] : cases) {
            prepare();
            EXPECT_EQ(root.GetRootState().modalResult, MModalValue::None) << what;
            Take();
            user.PressKey(MKeyEnter);
            EXPECT_EQ(Take().find("default:click") != std::string::npos, isAnswered) << what;
        }
    });
    EXPECT_EQ(root.RunModal(nullptr), MModalValue::Yes);
}

TEST_F(MButtonTest, IsPaintedAloneUnderTheMouse) {
    auto& upper = Add<MButton>(MRect::FromSize(10, 10, 80, 24));
    auto& lower = Add<MButton>(MRect::FromSize(10, 40, 80, 24));
    Open(root);
    user.MoveMouse(At(root));
    const auto& style = static_cast<MPlainStyle&>(*windows.GetStyle());
    const std::pair<MPoint, int64_t> moves[] = {
        {At(upper), 1}, {At(upper, {3, 0}), 0}, {At(lower), 2}, {At(root), 1}};
    for (const auto& [place, painted] : moves) {
        root.RedrawNow();
        const int64_t paints = style.CountPaints();
        user.MoveMouse(place);
        root.RedrawNow();
        EXPECT_EQ(style.CountPaints() - paints, painted) << place.x << "," << place.y;
    }
}

TEST_F(MButtonTest, SharesANumberWithItsRing) {
    int32_t number = 0;
    std::vector<MButton*> buttons;
    for (int32_t i = 0; i < 4; ++i) {
        buttons.push_back(&Add<MButton>(MRect::FromSize(10, 10 + 30 * i, 80, 24)));
        buttons.back()->SetSwitchable(true);
        buttons.back()->BindToValue(&number, i, 1);
    }
    buttons[2]->SetUnswitchable(true);
    Open(root);
    std::mt19937 random(1);
    int32_t model = 0;
    const auto& style = static_cast<MPlainStyle&>(*windows.GetStyle());
    user.MoveMouse({0, 0});
    for (int32_t round = 0; round < 200; ++round) {
        const auto i = static_cast<int32_t>(random() % 4);
        const int32_t before = model;
        model = i != model ? i : i == 2 ? 1 : model;
        root.RedrawNow();
        const int64_t paints = style.CountPaints();
        (void)buttons[static_cast<size_t>(i)]->SetSwitched(i != before);
        root.RedrawNow();
        EXPECT_EQ(style.CountPaints() - paints, before == model ? 0 : 2) << "those that look another way";
        ASSERT_EQ(number, model);
        for (int32_t k = 0; k < 4; ++k) {
            ASSERT_EQ(buttons[static_cast<size_t>(k)]->IsSwitched(), k == model);
            ASSERT_EQ(buttons[static_cast<size_t>(k)]->Is(MControlFlag::Checked), k == model);
        }
    }
    number = 3;
    user.Click(At(*buttons[3]));
    EXPECT_EQ(Take(), Text(buttons[3]->GetName()) + ":click") << "it is on, and stays";
}

TEST_F(MButtonTest, KeepsTheValueThatItIsToldTo) {
    const auto make = [this] {
        auto& button = Add<MButton>({10, 10, 89, 33}, "button");
        button.Set(MControlFlag::SaveValue);
        return &button;
    };
    MButton* button = make();
    (void)button->SetSwitched(true);
    MXMLItem state("state");
    EXPECT_TRUE(root.SaveState(state));
    delete button;
    button = make();
    root.LoadState(state);
    EXPECT_TRUE(button->IsSwitched());
}

TEST_F(MButtonTest, RepeatsAsLongAsItIsHeld) {
    auto& button = Add<MRepeaterButton>({10, 10, 89, 33}, "r");
    Open(root);
    const auto countIn = [&](int64_t time) {
        system.AdvanceTime(time);
        return Take().size() / 7;
    };
    Press(button);
    EXPECT_EQ(countIn(0), 1) << "at the press";
    EXPECT_GE(countIn(1000), 5);
    user.MoveMouse(At(button, {0, 60}));
    EXPECT_EQ(countIn(1000), 0) << "beside the button it waits";
    user.MoveMouse(At(button));
    EXPECT_GE(countIn(500), 3);
    user.ReleaseButton();
    EXPECT_EQ(countIn(1000), 0);
    Press(button);
    button.SetVisible(false);
    Take();
    EXPECT_EQ(countIn(1000), 0) << "the release never comes";
}

}  // namespace
