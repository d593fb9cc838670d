#include "ui/widgets/menus/MMenuBar.h"
#include "tests/ui/widgets/WidgetFixture.h"

namespace {

/// A window with a bar of "File", "Edit" (disabled) and "View", and a control that has the focus.
class MMenuBarTest : public WidgetTest {
protected:
    MMenuBarTest() {
        Place(bar, MRect::FromSize(0, 0, 298, 24));
        Place(content, MRect::FromSize(0, 50, 100, 100));
        for (const char* text : {"File", "Edit", "View"}) {
            bar.AddMenu(text).AddItem(MString(text) + "1", bar.GetItemCount() * 10 + 1);
            bar.GetMenu(bar.GetItemCount() - 1).AddItem("2", bar.GetItemCount() * 10 + 2);
        }
        bar.SetItemEnabled(1, false);
        bar.OnItem().Connect(this, &MMenuBarTest::OnItem);
        Open(root);
        content.SetFocus();
        Take();
    }
    ~MMenuBarTest() noexcept override = default;

    void OnItem(const MOnItemParams<MMenuItem>& params) { log += std::to_string(params.item->id) + " "; }
    MPoint GetPlace(int32_t item) {
        const MRect rect = bar.GetItemRect(item);
        return bar.GetScreenPoint({(rect.left + rect.right) / 2, rect.top + 5});
    }

    MMenuBar bar{&root, "bar"};
    Probe content{&root, "content", log};
};

TEST_F(MMenuBarTest, IsUsedByKeys) {
    const struct {
        std::initializer_list<int32_t> keys;
        const char* chosen;
        int32_t openItem;
    } cases[] = {
        {{MKeyAlt, MKeyDown, MKeyEnter}, "11", -1},
        {{MKeyF10, MKeyRight, MKeyEnter, MKeyDown, MKeyEnter}, "32", -1},
        {{MKeyAlt, MKeyDown, MKeyRight, MKeyUp, MKeyEnter}, "32", -1},
        {{MKeyAlt, MKeyLeft, MKeyUp, MKeyRight}, "", 0},
        {{MKeyAlt, MKeyDown, MKeyEscape}, "", -1},
        {{MKeyAlt, MKeyAlt}, "", -1},
        {{MKeyAlt, MKeyEscape}, "", -1},
    };
    for (const auto& test : cases) {
        for (const int32_t key : test.keys) user.PressKey(key);
        EXPECT_EQ(bar.GetOpenItem(), test.openItem);
        if (test.openItem >= 0) bar.GetMenu(test.openItem).Close();
        EXPECT_TRUE(content.HasFocus());
        EXPECT_EQ(system.GetActiveRoot(), &root);
        std::string told = Take();
        EXPECT_EQ(told.find(test.chosen) != std::string::npos, true) << told;
    }
    // Alt with a letter opens that item; with anything else it is no key of the bar.
    user.HoldKeys(MModifierAlt);
    user.PressKey('V');
    EXPECT_EQ(bar.GetOpenItem(), 2);
    bar.GetMenu(2).Close();
    system.GetMessages().OnKey(root, MEventType::KeyDown, MKeyAlt);
    user.PressKey('X');
    user.HoldKeys(MModifierNone);
    system.GetMessages().OnKey(root, MEventType::KeyUp, MKeyAlt);
    EXPECT_FALSE(bar.HasFocus());
}

TEST_F(MMenuBarTest, IsUsedByTheMouse) {
    user.Click(GetPlace(1));
    EXPECT_EQ(bar.GetOpenItem(), -1);
    user.Click(GetPlace(0));
    EXPECT_EQ(bar.GetOpenItem(), 0);
    // Along the bar the menus open by themselves.
    user.MoveMouse(GetPlace(1));
    EXPECT_EQ(bar.GetOpenItem(), 0);
    user.MoveMouse(GetPlace(2));
    EXPECT_EQ(bar.GetOpenItem(), 2);
    EXPECT_FALSE(bar.GetMenu(0).IsOpen());
    system.AdvanceTime(200);
    user.Click(GetPlace(2));
    EXPECT_EQ(bar.GetOpenItem(), -1);
    EXPECT_TRUE(content.HasFocus());
    // Pressed, drawn to an item and released there.
    system.AdvanceTime(2000);
    Take();
    user.MoveMouse(GetPlace(0));
    user.PressButton();
    const MRect frame = system.GetFrame(bar.GetMenu(0));
    user.MoveMouse({frame.left + 5, frame.bottom - 5});
    user.ReleaseButton();
    EXPECT_NE(Take().find("12"), std::string::npos);
}

}  // namespace
