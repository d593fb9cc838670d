#include "ui/widgets/tabs/MTabSet.h"
#include "foundation/xml/MXMLItem.h"
#include "tests/ui/widgets/WidgetFixture.h"

namespace {

/// A window with the tabs "Tab 0" and so on, the second of them disabled; each page holds a probe "p0" and so on.
class MTabSetTest : public WidgetTest {
protected:
    MTabSetTest() {
        root.SetClientControl(&tabs);
        for (int32_t i = 0; i < 4; ++i) {
            MPanel& page = tabs.AddTab("Tab " + MNumberToText(i));
            probes.push_back(new Probe(&page, nullptr, log));
            probes.back()->SetName("p" + MNumberToText(i));
            probes.back()->minClientSize = {20, 20};
            page.SetClientControl(probes.back());
        }
        tabs.SetTabEnabled(1, false);
        Listen(tabs);
        Open(root);
    }
    ~MTabSetTest() noexcept override = default;

    MPoint GetPlace(int32_t index) {
        const MRect rect = tabs.GetStrip().GetButtonRect(index);
        return tabs.GetStrip().GetScreenPoint({(rect.left + rect.right) / 2, rect.top + 3});
    }
    std::string GetShown() {
        std::string shown;
        for (const Probe* probe : probes)
            if (probe->IsShown()) shown += Text(probe->GetName());
        return shown;
    }

    MTabSet& tabs = *new MTabSet(&root, "Tabs");
    std::vector<Probe*> probes;
};

TEST_F(MTabSetTest, SelectsByMouseAndKeys) {
    EXPECT_EQ(GetShown(), "p0");
    user.Click(GetPlace(2));
    EXPECT_EQ(GetShown(), "p2");
    user.Click(GetPlace(1));
    user.PressKey(MKeyLeft);
    EXPECT_EQ(GetShown(), "p0");
    user.PressKey(MKeyLeft);
    user.PressKey(MKeyEnd);
    EXPECT_EQ(GetShown(), "p3");
    EXPECT_NE(Take().find("Tabs:change"), std::string::npos);
    // From inside of a page too.
    probes[3]->SetFocus();
    user.HoldKeys(MModifierControl);
    user.PressKey(MKeyPageUp);
    EXPECT_EQ(GetShown(), "p2");
    user.HoldKeys(MModifierNone);
    tabs.GetStrip().SetFocus();
    user.PressKey(MKeyMenu);
    user.PressKey(MKeyHome);
    user.PressKey(MKeyEnter);
    EXPECT_EQ(GetShown(), "p0");
    MXMLItem state("state");
    state.SetAttribute("selected", 3);
    tabs.LoadValueState(state);
    EXPECT_EQ(GetShown(), "p3");
}

TEST_F(MTabSetTest, TakesPagesOutToWindows) {
    const auto getWindow = [&](size_t probe) { return Text(probes[probe]->GetRoot().GetName()); };
    user.HoldKeys(MModifierControl);
    user.Click(GetPlace(2));
    user.HoldKeys(MModifierNone);
    EXPECT_EQ(getWindow(2), "TabPopupTabs2");
    EXPECT_EQ(GetShown(), "p0p2");
    system.Activate(root);
    user.Click(GetPlace(0), 1, MModifierRightButton);
    EXPECT_EQ(getWindow(0), "TabPopupTabs0");
    MControl& popup = probes[0]->GetRoot();
    popup.RequestClose();
    EXPECT_EQ(&probes[0]->GetRoot(), &root);
    EXPECT_EQ(GetShown(), "p0p2");
    // It opens a second time as well, and closes with its owner.
    system.Activate(root);
    system.AdvanceTime(1000);
    tabs.GetStrip().SetFocus();
    user.HoldKeys(MModifierControl);
    user.PressKey(MKeyEnter);
    EXPECT_EQ(getWindow(0), "TabPopupTabs0");
    root.HideWindow();
    EXPECT_EQ(getWindow(0) + getWindow(2), Text(root.GetName()) + Text(root.GetName()));
}

TEST_F(MTabSetTest, ReachesAllTabsInLittleRoom) {
    const auto isSeen = [&](int32_t index) {
        return &root.FindControlAt(GetPlace(index) - system.GetFrame(root).GetTopLeft()) == &tabs.GetStrip();
    };
    root.SetSize({root.minimalSize.x, 200});
    EXPECT_FALSE(isSeen(3));
    // The border button at the right is the last pixels of the strip.
    const MPoint border = tabs.GetStrip().GetScreenPoint({tabs.GetStrip().size.x - 5, 5});
    for (int32_t i = 0; i < 9; ++i) user.Click(border);
    EXPECT_TRUE(isSeen(3));
    user.Click(GetPlace(3));
    EXPECT_EQ(GetShown(), "p3");
    tabs.GetStrip().SetFocus();
    user.PressKey(MKeyHome);
    EXPECT_TRUE(isSeen(0));
    tabs.SetFitAllButtons(true);
    root.UpdateLayout();
    EXPECT_LE(tabs.GetStrip().GetButtonRect(3).right, tabs.GetStrip().size.x);
    EXPECT_GE(tabs.GetStrip().GetButtonRect(0).left, 0);
}

}  // namespace
