#include "tests/ui/control/ControlFixture.h"

namespace {

/// A window with two halves, of which the left one holds a small control.
class EventRoutingTest : public ControlTest {
protected:
    EventRoutingTest() {
        Place(left, {0, 0, 149, 199});
        Place(right, {150, 0, 299, 199});
        Place(inner, {20, 20, 69, 69});
        for (Probe* probe : {&left, &right, &inner}) {
            probe->takes = true;
            probe->OnClick(MControl::Click::Left).Connect(probe, &Probe::TellClick);
            probe->OnClick(MControl::Click::LeftDouble).Connect(probe, &Probe::TellDoubleClick);
        }
        Open(root);
        user.MoveMouse({0, 0});
        Take();
    }

    /// A place in the window.
    static MPoint At(int32_t x, int32_t y) { return {100 + x, 100 + y}; }
    std::string Do(const std::function<void()>& action) {
        action();
        return Take();
    }

    Probe root{nullptr, "root", log};
    Probe left{&root, "left", log};
    Probe right{&root, "right", log};
    Probe inner{&left, "inner", log};
};

TEST_F(EventRoutingTest, GivesMouseEventsToTheDeepestControlThatTakesThem) {
    struct Case {
        const char* what;
        std::function<void()> action;
        const char* expected;
    };
    const Case cases[] = {
        {"enters", [&] { user.MoveMouse(At(30, 30)); }, "inner:enter"},
        {"click", [&] { user.Click(At(30, 30)); }, "left:blur inner:focus inner:down inner:up inner:click10"},
        {"double click that is taken", [&] { user.PressButton(); }, "inner:double inner:doubleclick"},
        {"its release", [&] { user.ReleaseButton(); }, "inner:up inner:click10"},
        {"moves on to the parent and out", [&] { user.MoveMouse(At(100, 100)); }, "inner:leave left:enter"},
        {"captures",
         [&] {
             user.PressButton();
             user.MoveMouse(At(200, 100));
             user.ReleaseButton();
         },
         "inner:blur left:focus left:down left:up"},
        {"hover follows after the release", [&] { user.MoveMouse(At(201, 100)); }, "left:leave right:enter"},
        {"a release without a press", [&] { user.ReleaseButton(); }, ""},
        {"wheel", [&] { user.TurnWheel(120); }, "right:wheel"},
        {"another button", [&] { user.Click(At(201, 100), 1, MModifierRightButton); },
         "left:blur right:focus right:rightdown right:rightup"},
        {"leaves the window",
         [&] {
             user.MoveMouse({0, 0});
         },
         "right:leave"},
        {"what keeps the hover", [&] { left.Set(MControlFlag::HoverLocked), user.MoveMouse(At(30, 30)); },
         ""},
    };
    for (const Case& test : cases) EXPECT_EQ(Do(test.action), test.expected) << test.what;

    user.MoveMouse(At(201, 100));
    int32_t steps = 0;
    right.onEvent = [&](const MSystemEvent& event) { steps = event.wheelDelta; };
    for (const auto& [delta, expected] : {std::pair(120, 1), {-240, -2}, {-1, -1}, {30, 1}}) {
        user.TurnWheel(delta);
        EXPECT_EQ(steps, expected);
    }
}

TEST_F(EventRoutingTest, HandsOnWhatIsNotTaken) {
    inner.takes = false;
    EXPECT_EQ(
        Do([&] { user.Click(At(30, 30)); }),
        "inner:enter left:blur inner:focus inner:down inner:blur left:focus left:down left:up left:click30")
        << "the mouse goes to the one that has taken the press";
    EXPECT_FALSE(inner.Is(MControlFlag::LeftDown));
    system.AdvanceTime(1000);
    inner.SetEnabled(false);
    inner.takes = true;
    EXPECT_EQ(Do([&] { user.Click(At(30, 30), 1, MModifierRightButton); }),
              "inner:leave left:enter left:rightdown left:rightup")
        << "a disabled control is not there";
    inner.SetEnabled(true);
    inner.Set(MControlFlag::AcceptsEvents, false);
    EXPECT_EQ(Do([&] { user.Click(At(30, 30), 1, MModifierMiddleButton); }), "left:middledown left:middleup");
    inner.Set(MControlFlag::AcceptsEvents);
    left.takes = inner.takes = false;
    left.takes = false;
    root.takes = inner.takes = true;
    root.onEvent = [&](const MSystemEvent& event) { root.takes = !event.IsDoubleClick(); };
    inner.onEvent = [&](const MSystemEvent& event) { inner.takes = !event.IsDoubleClick(); };
    Do([&] { user.Click(At(30, 30)); });
    EXPECT_EQ(Do([&] { user.Click(At(30, 30)); }),
              "inner:double inner:doubleclick left:double left:doubleclick root:double "
              "inner:down inner:up inner:click10")
        << "a double click that nobody takes is a press";
    right.onEvent = [&](const MSystemEvent& event) {
        if (event.type == MEventType::GotFocus) right.SetVisible(false);
    };
    user.MoveMouse(At(200, 50));
    user.PressButton();
    EXPECT_FALSE(root.GetCapture()) << "it has gone meanwhile";
}

TEST_F(EventRoutingTest, SendsKeysToTheFocusAndThenToHotKeys) {
    struct Receiver : MEventTarget {
        void Fire(const MOnKeyboardShortcutParams& params) {
            fired += std::to_string(params.key) + (params.phase == MShortcutPhase::Release ? "up " : " ");
        }
        std::string fired;
    } receiver;
    root.GetShortcuts().Connect(&receiver, &Receiver::Fire, {'A', MModifierControl, MShortcutPhase::Press});
    left.GetShortcuts().Connect(&receiver, &Receiver::Fire, {'B', MModifierNone, MShortcutPhase::Preview});
    left.GetShortcuts().Connect(&receiver, &Receiver::Fire, {'C', MModifierNone, MShortcutPhase::Release});
    inner.SetFocus();
    Take();
    user.PressKey('A', u'a');
    EXPECT_EQ(Take(), "inner:key inner:char inner:keyup");
    inner.takes = false;
    user.HoldKeys(MModifierControl);
    user.PressKey('A');
    user.HoldKeys(MModifierControl | MModifierShift);
    user.PressKey('A');
    user.HoldKeys(MModifierNone);
    user.PressKey('B');
    user.PressKey('C');
    EXPECT_EQ(receiver.fired, "65 66 67up ");
    EXPECT_EQ(Take(), "inner:key inner:keyup inner:key inner:keyup inner:keyup inner:key inner:keyup");
    left.SetVisible(false);
    Take();
    user.PressKey('D');
    EXPECT_EQ(Take(), "right:key right:keyup");
}

TEST_F(EventRoutingTest, DragsAndDrops) {
    const auto begin = [&] {
        user.MoveMouse(At(30, 30));
        user.PressButton();
        inner.StartDragDrop();
        Take();
    };
    begin();
    right.takes = true;
    EXPECT_EQ(Do([&] { user.MoveMouse(At(160, 5)); }), "right:over");
    EXPECT_EQ(system.GetShownCursor(root), MStdCursor::Move);
    EXPECT_EQ(Do([&] { user.ReleaseButton(); }), "right:drop10,5 inner:accepted");
    EXPECT_FALSE(inner.Is(MControlFlag::LeftDown));
    begin();
    EXPECT_EQ(Do([&] { left.StartDragDrop(); }), "inner:cancelled");
    begin();
    right.takes = false;
    EXPECT_EQ(Do([&] { user.MoveMouse(At(160, 5)), user.ReleaseButton(); }),
              "right:over right:drop10,5 inner:refused");
    begin();
    inner.takes = false;
    root.Set(MControlFlag::CloseOnEscape);
    EXPECT_EQ(Do([&] { user.PressKey(MKeyEscape); }), "inner:key inner:cancelled inner:keyup");
    EXPECT_TRUE(system.IsVisible(root)) << "the key was the drag's";
}

TEST_F(EventRoutingTest, OffersFilesUpTheTree) {
    MList<MString> files;
    files.Add("/a");
    files.Add("/b");
    inner.takes = left.takes = false;
    user.PlaceMouse(At(30, 30));
    EXPECT_FALSE(user.DropFiles(files));
    EXPECT_EQ(Take(), "inner:files2 left:files2 root:files2");
    left.takes = true;
    EXPECT_TRUE(user.DropFiles(files));
    EXPECT_EQ(Take(), "inner:files2 left:files2");
}

TEST_F(EventRoutingTest, ShowsTheCursorOfWhatIsUnderTheMouse) {
    inner.Set(MControlFlag::CursorFromParent);
    left.Set(MControlFlag::LinkCursor);
    for (Probe* probe : {&root, &left, &right, &inner}) probe->takes = false;
    root.Set(MControlFlag::Resizable);
    root.GetRootState().flexibility = MFlexibleX;
    Place(left, {20, 20, 149, 199});
    root.ArrangeChildren();
    const std::pair<MPoint, MStdCursor> cases[] = {{At(50, 50), MStdCursor::Link},
                                                   {At(200, 50), MStdCursor::Arrow},
                                                   {At(2, 100), MStdCursor::ArrowLR},
                                                   {At(100, 2), MStdCursor::Arrow}};
    for (const auto& [point, cursor] : cases) {
        user.MoveMouse(point);
        EXPECT_EQ(system.GetShownCursor(root), cursor) << point.x << "," << point.y;
    }
    windows.forcedCursor = static_cast<int32_t>(MStdCursor::Wait);
    user.MoveMouse(At(50, 50));
    EXPECT_EQ(system.GetShownCursor(root), MStdCursor::Wait);
}

}  // namespace
