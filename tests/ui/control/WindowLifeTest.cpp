#include "tests/ui/control/ControlFixture.h"

namespace {

class Dialogs final : public MWindowDialogs {
public:
    bool AskYesNo(MControl&, const MString& question) override {
        asked += Text(question);
        return answer;
    }
    void ShowInformation(MControl&, const MString& text) override { shown = Text(text); }
    std::optional<MString> EditText(MControl&, const MString&, const MString&,
                                    const MCharFilter::Interface&) override {
        return {};
    }
    void ShowDocument(MControl&, const MString&, const MString& text) override { shown = Text(text); }

    std::string asked;
    std::string shown;
    bool answer = false;
};

class WindowLifeTest : public ControlTest {
protected:
    WindowLifeTest() {
        Open(root);
        Prepare(popup, {150, 150}, {100, 50});
        Take();
    }
    ~WindowLifeTest() noexcept override = default;

    MModalValue RunPopup(std::function<void()> action) {
        system.Post(std::move(action));
        return popup.RunModal(&root);
    }

    Probe root{nullptr, "root", log};
    Probe popup{nullptr, "popup", log};
};

TEST_F(WindowLifeTest, ModalWindowsBlockTheirOwnerUntilTheyAreClosed) {
    EXPECT_EQ(RunPopup([&] {
                  EXPECT_EQ(system.GetActiveRoot(), &popup);
                  Take();
                  user.Click({120, 120});
                  user.Click({160, 160});
                  EXPECT_EQ(Take(), "popup:enter popup:down popup:up");
                  popup.CloseWindow(MModalValue::Yes);
                  popup.CloseWindow(MModalValue::No);
                  system.ExitLoop(popup, MModalValue::Ok);
                  EXPECT_TRUE(system.IsVisible(popup)) << "the loop ends first";
              }),
              MModalValue::Yes)
        << "the first result stays";
    EXPECT_FALSE(system.IsVisible(popup));
    EXPECT_EQ(system.GetActiveRoot(), &root);
    EXPECT_FALSE(popup.Is(MControlFlag::Modal));
    MControl windowless;
    EXPECT_EQ(windowless.RunModal(&root), MModalValue::Cancel);
    Take();
    root.CloseWindow(MModalValue::None);
    EXPECT_EQ(Take(), "root:blur root:activation root:hidden") << "the other one was closed before";
}

TEST_F(WindowLifeTest, ClosesAsItsFlagsSay) {
    struct Case {
        const char* what;
        MControlFlag flag;
        std::function<void()> action;
        bool isClosed;
    };
    const auto escape = [&] { user.PressKey(MKeyEscape); };
    const Case cases[] = {
        {"escape", MControlFlag::CloseOnEscape, escape, true},
        {"escape without the flag", MControlFlag::CloseOnDeactivate, escape, false},
        {"another window", MControlFlag::CloseOnDeactivate, [&] { system.Activate(root); }, true},
        {"another program", MControlFlag::CloseOnDeactivate, [&] { system.ActivateOtherProgram("Editor"); },
         true},
        {"the host's mixer", MControlFlag::CloseOnDeactivate, [&] { system.ActivateOtherProgram("Mixer 1"); },
         false},
        {"without the flag", MControlFlag::CloseOnEscape, [&] { system.Activate(root); }, false},
        {"the platform's button", MControlFlag::CloseOnEscape,
         [&] { system.GetMessages().OnCloseRequested(popup); }, true},
    };
    for (const Case& test : cases) {
        popup.Set(MControlFlag::CloseOnEscape, false);
        popup.Set(MControlFlag::CloseOnDeactivate, false);
        popup.Set(test.flag);
        const MModalValue result = RunPopup([&] {
            test.action();
            if (popup.GetRootState().modalResult == MModalValue::None) popup.CloseWindow(MModalValue::Ok);
        });
        EXPECT_EQ(result, test.isClosed ? MModalValue::Cancel : MModalValue::Ok) << test.what;
    }
    popup.Set(MControlFlag::CloseOnEscape);
    popup.canClose = false;
    EXPECT_EQ(RunPopup([&] { escape(), popup.CloseWindow(MModalValue::Ok); }), MModalValue::Ok)
        << "the window may refuse";
}

TEST_F(WindowLifeTest, PopupsOverPopupsCloseTogether) {
    Probe upper(nullptr, "upper", log);
    Prepare(upper, {180, 170}, {100, 50});
    struct Case {
        const char* what;
        std::function<void()> leave;
        bool isLowerClosed;
        MControl* active;
    };
    const Case cases[] = {
        {"a press on the lower one",
         [&] {
             user.Click({155, 155});
         },
         false, &root},
        {"a press on the window",
         [&] {
             user.Click({110, 110});
         },
         true, &root},
        {"the platform", [&] { system.Activate(root); }, true, &root},
        {"another program", [&] { system.ActivateOtherProgram("Editor"); }, true, nullptr},
        {"its own end", [&] { upper.CloseWindow(MModalValue::Cancel); }, false, &root},
    };
    for (Probe* probe : {&popup, &upper}) probe->Set(MControlFlag::CloseOnDeactivate);
    for (const auto& [what, leave, isLowerClosed, active] : cases) {
        system.Activate(root);
        const MModalValue result = RunPopup([&] {
            system.Post(leave);
            EXPECT_EQ(upper.RunModal(&popup), MModalValue::Cancel) << what;
            popup.CloseWindow(MModalValue::Ok);
        });
        EXPECT_EQ(result, isLowerClosed ? MModalValue::Cancel : MModalValue::Ok) << what;
        EXPECT_EQ(system.GetActiveRoot(), active) << what;
    }
}

TEST_F(WindowLifeTest, NothingStaysHalfDoneWhenHandlersRaise) {
    EXPECT_ANY_THROW(RunPopup([] { throw 1; }));
    EXPECT_FALSE(windows.IsBlocked(root));
    popup.HideWindow();
    system.AdvanceTime(100);
    root.onEvent = [](const MSystemEvent& event) {
        if (event.IsRelease() || event.type == MEventType::BecomingInvisible) throw 1;
    };
    user.Click({120, 120});
    EXPECT_FALSE(root.GetCapture() || root.Is(MControlFlag::LeftDown));
    EXPECT_ANY_THROW(root.SetVisible(false));
    root.onEvent = nullptr;
    root.SetVisible(false);
    EXPECT_FALSE(root.Is(MControlFlag::Visible));
}

TEST_F(WindowLifeTest, OneWindowTakesTheMouseFromAnother) {
    popup.ShowModeless(nullptr);
    user.MoveMouse({120, 120});
    user.PressButton();
    EXPECT_EQ(root.GetCapture(), &root);
    popup.SetCapture(&popup);
    EXPECT_FALSE(root.GetCapture() || root.Is(MControlFlag::LeftDown));
}

TEST_F(WindowLifeTest, TheLastOpenWindowEndsTheApplication) {
    root.Set(MControlFlag::KeepsApplicationAlive, false);
    popup.Set(MControlFlag::KeepsApplicationAlive, false);
    const auto isQuit = [&] {
        bool isAlive = false;
        system.Post([&] { isAlive = true; });
        system.RunApplication();
        return !isAlive;
    };
    root.HideWindow();
    popup.CloseWindow(MModalValue::Ok);
    EXPECT_FALSE(isQuit()) << "it was not open";
    root.ShowModeless(nullptr);
    RunPopup([&] { root.CloseWindow(MModalValue::Ok); });
    EXPECT_TRUE(isQuit()) << "the popup goes with its owner";
}

TEST_F(WindowLifeTest, WindowsGoAndMayComeWithTheirOwner) {
    popup.SetControlType(MControlType::Menu);
    popup.ShowModeless(&root);
    EXPECT_EQ(popup.GetControlType(), MControlType::Menu);
    for (const bool isOpenedToo : {false, true}) {
        popup.Set(MControlFlag::OpenedWithParent, isOpenedToo);
        root.HideWindow();
        EXPECT_FALSE(system.IsVisible(popup));
        root.ShowModeless(nullptr);
        EXPECT_EQ(system.IsVisible(popup), isOpenedToo);
    }
}

TEST_F(WindowLifeTest, APressThatClosesAPopupStopsThere) {
    popup.Set(MControlFlag::CloseOnDeactivate);
    RunPopup([&] { system.Activate(root); });
    Take();
    user.Click({110, 110});
    EXPECT_EQ(Take(), "root:enter");
    system.AdvanceTime(100);
    user.Click({130, 130});
    EXPECT_EQ(Take(), "root:down root:up");
}

TEST_F(WindowLifeTest, AsksBeforeItClosesForGood) {
    Dialogs dialogs;
    windows.dialogs = &dialogs;
    MControl asking;
    asking.Set(MControlFlag::ConfirmClose);
    Open(asking, {600, 100});
    system.GetMessages().OnCloseRequested(asking);
    EXPECT_TRUE(system.IsVisible(asking));
    EXPECT_EQ(dialogs.asked, "Are you sure you want to close the application?");
    dialogs.answer = true;
    system.GetMessages().OnCloseRequested(asking);
    EXPECT_FALSE(system.IsVisible(asking));
    root.CloseWindow(MModalValue::None);
    EXPECT_EQ(Take(), "root:blur root:activation root:hidden");
}

TEST_F(WindowLifeTest, ShowsHelpOfWhatIsUnderTheMouse) {
    Dialogs dialogs;
    windows.dialogs = &dialogs;
    MControl panel(&root);
    MControl knob(&panel);
    Place(panel, {0, 0, 99, 99});
    Place(knob, {0, 0, 49, 49});
    root.UpdateLayout();
    user.PlaceMouse({110, 110});
    const auto press = [&](int32_t key, MKeyModifiers keys = MModifierNone) {
        dialogs.shown.clear();
        user.HoldKeys(keys);
        user.PressKey(key);
        return dialogs.shown;
    };
    EXPECT_EQ(press(MKeyF1), "Sorry, no help is defined for this control.");
    EXPECT_EQ(press('H'), "");
    panel.help = "All about it.";
    EXPECT_EQ(press('H', MModifierControl), "Sorry, no help is defined for this control.");
    knob.Set(MControlFlag::UseParentHelp);
    EXPECT_THAT(press(MKeyF1), testing::EndsWith("</tagset>All about it."));
    knob.infoText = "It turns.";
    root.help = "A window.";
    root.ShowHelp(root);
    EXPECT_THAT(dialogs.shown, testing::HasSubstr("A window.<justify><s/></justify>All about it."
                                                  "<justify><s/></justify>It turns.<p/><p><i><cgreen>Move"));
}

TEST_F(WindowLifeTest, MovesAndResizesWithoutAFrame) {
    root.Set(MControlFlag::WindowMovable);
    user.MoveMouse({150, 150});
    user.PressButton();
    for (const MPoint point : {MPoint{160, 140}, MPoint{400, 300}}) user.MoveMouse(point);
    user.ReleaseButton();
    EXPECT_EQ(system.GetFrame(root), MRect::FromSize(350, 250, 300, 200));
    EXPECT_FALSE(root.GetCapture() || root.Is(MControlFlag::LeftDown));

    root.Set(MControlFlag::Resizable);
    root.GetRootState().flexibility = MFlexibleBoth;
    for (const bool isLive : {true, false}) {
        root.minimalSize = {250, 150};
        root.Set(MControlFlag::LiveResizing, isLive);
        const MRect before = system.GetFrame(root);
        user.MoveMouse(before.GetTopLeft() + MPoint{2, 2});
        EXPECT_EQ(system.GetShownCursor(root), MStdCursor::Size);
        user.PressButton();
        user.MoveMouse(before.GetTopLeft() + MPoint{500, -8});
        EXPECT_EQ(system.CountDragFrames(), isLive ? 0 : 1);
        EXPECT_EQ(system.GetFrame(root) == before, !isLive);
        user.MoveMouse(before.GetTopLeft() + MPoint{12, -8});
        user.ReleaseButton();
        EXPECT_EQ(system.CountDragFrames(), 0);
        EXPECT_EQ(system.GetFrame(root),
                  (MRect{before.left + 10, before.top - 10, before.right, before.bottom}));
        EXPECT_EQ(root.size.x, before.GetWidth() - 10);
    }
    user.MoveMouse(system.GetFrame(root).GetTopLeft() + MPoint{2, 2});
    user.PressButton();
    root.DestroyWindow();
    EXPECT_EQ(system.CountDragFrames(), 0) << "the frame goes with the window";
    root.CreateWindow(nullptr);
    system.Maximize(root);
    EXPECT_EQ(root.HitTestWindowBorder({1, 1}), 0);
}

TEST_F(WindowLifeTest, EndsThousandsOfControlsInTheirOrder) {
    struct Child : MControl {
        Child(MControl* parent, std::vector<int32_t>& order, int32_t number)
            : MControl(parent), order(order), number(number) {}
        ~Child() override { order.push_back(number); }
        std::vector<int32_t>& order;
        int32_t number;
    };
    std::vector<int32_t> order;
    {
        MControl parent;
        for (int32_t i = 0; i < 20000; ++i) new Child(&parent, order, i);
    }
    EXPECT_EQ(order.size(), 20000);
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
}

}  // namespace

TEST_F(WindowLifeTest, AChangeOfTheDesktopIsToldOnce) {
    struct Listener final : MEventTarget {
        void OnDesktop(const MOnNotifyParams&) { ++count; }
        int32_t count = 0;
    } listener;
    windows.OnDesktop().Connect(&listener, &Listener::OnDesktop);
    system.SetDesktop(100, std::nullopt);
    EXPECT_EQ(listener.count, 0);
    system.SetDesktop(150, std::nullopt);
    system.SetDesktop(150, true);
    system.SetDesktop(150, true);
    EXPECT_EQ(listener.count, 2);
}
