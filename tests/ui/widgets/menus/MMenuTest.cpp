#include "ui/widgets/menus/MMenu.h"
#include "tests/ui/control/ControlFixture.h"
#include "ui/control/MContainers.h"
#include "ui/widgets/menus/MWindowMenu.h"

namespace {

/// A window with a menu that opens at (150, 150): "Open", "Save" (disabled), a line, "Recent" with a sub-menu of
/// "First" and "Second", "Quit".
class MMenuTest : public ControlTest {
protected:
    MMenuTest() {
        Open(window);
        menu.AddItem("Open", 1);
        menu.AddItem("Save", 2).isEnabled = false;
        menu.AddSeparator();
        recent = &menu.AddSubMenu("Recent");
        recent->AddItem("First", 31);
        recent->AddItem("Second", 32);
        menu.AddItem("Quit", 4);
        menu.OnItem().Connect(&hearer, &Hearer::OnMenu);
        recent->OnItem().Connect(&hearer, &Hearer::OnMenu);
    }
    ~MMenuTest() noexcept override = default;

    void OpenMenu(MPoint point = {150, 150}) {
        // A menu that was closed swallows presses for a moment.
        system.AdvanceTime(200);
        menu.Open(window, {point.x, point.y - 10, point.x + 20, point.y - 1});
    }
    /// The middle of a row on the screen.
    MPoint GetPlace(MMenuBase& of, int32_t row) {
        const MRect frame = system.GetFrame(of);
        const int32_t height = frame.GetHeight() / of.GetItemCount();
        return {frame.left + frame.GetWidth() / 2, frame.top + row * height + height / 2};
    }
    void Keys(std::initializer_list<int32_t> keys) {
        for (const int32_t key : keys) user.PressKey(key);
    }
    std::string Chosen() { return std::exchange(hearer.chosen, ""); }

    struct Hearer : MEventTarget {
        explicit Hearer(MControl& top) : top(&top) {}
        void OnMenu(const MOnItemParams<MMenuItem>& params) {
            chosen += std::to_string(params.item->id) + (params.control == top ? "" : "s") + " ";
        }
        MControl* top;
        std::string chosen;
    };

    MWindow window;
    Probe button{&window, "button", log};
    MMenu menu;
    MMenuT<MMenuItem>* recent;
    Hearer hearer{menu};
};

TEST_F(MMenuTest, IsUsedByKeys) {
    const struct {
        std::initializer_list<int32_t> keys;
        const char* chosen;
        bool isOpen;
    } cases[] = {
        {{MKeyDown, MKeyEnter}, "1 ", false},
        {{MKeyDown, MKeyDown, MKeyDown, MKeyEnter}, "4 ", false},
        {{MKeyUp, MKeySpace}, "4 ", false},
        {{MKeyEnd, MKeyDown, MKeyEnter}, "1 ", false},
        {{MKeyHome, MKeyDown, MKeyRight, MKeyDown, MKeyEnter}, "32s 32 ", false},
        {{MKeyDown, MKeyDown, MKeyEnter, MKeyEnter}, "31s 31 ", false},
        {{MKeyDown, MKeyDown, MKeyRight, MKeyLeft, MKeyDown, MKeyEnter}, "4 ", false},
        {{MKeyDown, MKeyDown, MKeyRight, MKeyEscape, MKeyEscape}, "", false},
        {{MKeyDown, MKeyDown, MKeyRight, MKeyEscape}, "", true},
        {{MKeyDown, MKeyAlt}, "", false},
        {{MKeyEnter}, "", true},
    };
    for (const auto& test : cases) {
        OpenMenu();
        Keys(test.keys);
        EXPECT_EQ(Chosen(), test.chosen);
        EXPECT_EQ(menu.IsOpen(), test.isOpen);
        EXPECT_EQ(system.GetActiveRoot(), test.isOpen ? &menu : static_cast<MControl*>(&window));
        EXPECT_FALSE(recent->IsOpen());
        menu.Close();
    }
}

TEST_F(MMenuTest, GoesToWhatIsTyped) {
    OpenMenu();
    user.PressKey('Q', u'q');
    user.PressKey(MKeyEnter);
    EXPECT_EQ(Chosen(), "4 ");
    // What cannot be chosen cannot be typed either.
    OpenMenu();
    user.PressKey('S', u's');
    user.PressKey(MKeyEnter);
    EXPECT_EQ(Chosen(), "");
}

TEST_F(MMenuTest, IsUsedByTheMouse) {
    OpenMenu();
    user.Click(GetPlace(menu, 1));
    EXPECT_TRUE(menu.IsOpen());  // disabled
    user.Click(GetPlace(menu, 0));
    EXPECT_EQ(Chosen(), "1 ");

    // By resting on an item its sub-menu opens, and over another one it closes.
    OpenMenu();
    user.MoveMouse(GetPlace(menu, 3));
    EXPECT_FALSE(recent->IsOpen());
    system.AdvanceTime(MMenu::HoverDelay + 20);
    EXPECT_TRUE(recent->IsOpen());
    user.MoveMouse(GetPlace(menu, 0));
    system.AdvanceTime(MMenu::HoverDelay + 20);
    EXPECT_FALSE(recent->IsOpen());
    EXPECT_EQ(system.GetActiveRoot(), &menu);
    // A way to the sub-menu that leads over another item does not close it.
    system.AdvanceTime(200);
    user.Click(GetPlace(menu, 3));
    EXPECT_TRUE(recent->IsOpen());
    user.MoveMouse(GetPlace(menu, 4));
    user.MoveMouse(GetPlace(*recent, 1));
    system.AdvanceTime(2 * MMenu::HoverDelay);
    user.Click(GetPlace(*recent, 1));
    EXPECT_EQ(Chosen(), "32s 32 ");

    // One press for all: it opens the menu, and its release chooses.
    system.AdvanceTime(200);
    user.MoveMouse({150, 145});
    user.PressButton();
    menu.Open(window, {150, 140, 170, 149});
    user.MoveMouse(GetPlace(menu, 4));
    user.ReleaseButton();
    EXPECT_EQ(Chosen(), "4 ");
}

TEST_F(MMenuTest, ClosesWhenTheUserTurnsElsewhere) {
    OpenMenu();
    Keys({MKeyDown, MKeyDown, MKeyRight});
    system.ActivateOtherProgram("Editor");
    EXPECT_FALSE(menu.IsOpen() || recent->IsOpen());
    EXPECT_EQ(system.GetActiveRoot(), nullptr);

    // The press that closes it does nothing else.
    system.Activate(window);
    button.SetSize({50, 50});
    OpenMenu();
    Keys({MKeyDown, MKeyDown, MKeyRight});
    Take();
    user.Click({110, 110});
    EXPECT_FALSE(menu.IsOpen() || recent->IsOpen());
    EXPECT_EQ(Take().find("down"), std::string::npos);
}

TEST_F(MMenuTest, StaysOnTheScreen) {
    const MRect room = system.GetWorkArea({});
    for (const MPoint point : {MPoint{room.right - 5, 100}, {room.right - 5, room.bottom - 5}, {-50, -50}}) {
        OpenMenu(point);
        Keys({MKeyDown, MKeyDown, MKeyRight});
        for (MControl* const root : {static_cast<MControl*>(&menu), static_cast<MControl*>(recent)}) {
            const MRect frame = system.GetFrame(*root);
            EXPECT_EQ(frame.Intersected(room), frame);
        }
        EXPECT_TRUE(system.GetFrame(menu).Intersected(system.GetFrame(*recent)).IsEmpty());
        menu.Close();
    }
    // More items than there is room for can all be reached.
    for (int32_t i = 0; i < 500; ++i) menu.AddItem("Item", 1000 + i);
    OpenMenu();
    EXPECT_LE(system.GetFrame(menu).GetHeight(), room.GetHeight());
    Keys({MKeyEnd, MKeyEnter});
    EXPECT_EQ(Chosen(), "1499 ");
}

TEST_F(MMenuTest, SurvivesWhatHandlersDo) {
    struct Destroyer : MEventTarget {
        void OnMenu(const MOnItemParams<MMenuItem>&) { menu.reset(); }
        std::unique_ptr<MMenu> menu = std::make_unique<MMenu>();
    } destroyer;
    MMenu& own = *destroyer.menu;
    auto& sub = own.AddSubMenu("Sub");
    sub.AddItem("Item", 1);
    sub.OnItem().Connect(&destroyer, &Destroyer::OnMenu);
    own.Open(window, {150, 150, 160, 160});
    Keys({MKeyDown, MKeyRight, MKeyEnter});
    EXPECT_EQ(destroyer.menu, nullptr);
    EXPECT_EQ(system.GetActiveRoot(), &window);
}

TEST_F(MMenuTest, HoldsControlsInsteadOfItems) {
    MWindowMenu popup("popup", MWindowMenu::OK | MWindowMenu::Cancel);
    new Probe(&popup.GetContainer(), "inside", log);
    const auto run = [&](const std::function<void()>& act) {
        system.AdvanceTime(200);
        system.Post(act);
        return popup.RunAt(window, {150, 150, 160, 160});
    };
    EXPECT_EQ(run([&] { user.PressKey(MKeyEnter); }), MModalValue::Ok);
    EXPECT_EQ(run([&] { user.PressKey(MKeyEscape); }), MModalValue::Cancel);
    EXPECT_EQ(run([&] { user.Click({110, 110}); }), MModalValue::Cancel);
    EXPECT_EQ(run([&] { system.ActivateOtherProgram("Editor"); }), MModalValue::Cancel);
    EXPECT_EQ(system.GetFrame(popup).top, 161);
}

}  // namespace
