#include "ui/widgets/scrolling/MScroller.h"
#include "tests/ui/widgets/WidgetFixture.h"
#include "ui/widgets/scrolling/MViewer.h"
#include "ui/widgets/scrolling/MZoomer.h"

#include <gmock/gmock.h>
#include <random>
#include <set>
#include <sstream>

namespace {

class MScrollerTest : public WidgetTest {
protected:
    ~MScrollerTest() noexcept override = default;

    static MScrollBar& GetBar(MScroller& scroller, const char* name) {
        for (MControl* child : scroller.GetChildren())
            if (child->GetName().IsExactly(name)) return static_cast<MScrollBar&>(*child);
        ADD_FAILURE() << name;
        std::abort();
    }
    /// Where the content is seen, on the window.
    static MRect GetView(MScroller& scroller) {
        MControl& view = *scroller.GetContainer().GetParent();
        return view.GetWindowContentRect();
    }
    static bool IsInside(const MRect& rect, const MRect& in) { return rect.Intersected(in) == rect; }
};

TEST_F(MScrollerTest, ShowsBarsAsNeededAndAllOfTheContent) {
    std::mt19937 random(5);
    auto& scroller = Add<MScroller>({10, 10, 109, 109});
    MControl& child = Place(*new MControl(&scroller.GetContainer()), {0, 0, 9, 9});
    Open(root);
    for (int32_t round = 0; round < 400; ++round) {
        const auto pick = [&] { return static_cast<int32_t>(random() % 150); };
        child.size = {20 + pick(), 20 + pick()};
        scroller.size = {60 + pick(), 60 + pick()};
        root.TouchSizes();
        root.UpdateLayout();
        const MRect view = GetView(scroller);
        const MPoint needed = child.size;
        MScrollBar& horizontal = GetBar(scroller, "hscrollbar");
        MScrollBar& vertical = GetBar(scroller, "vscrollbar");
        ASSERT_EQ(horizontal.IsShown(), needed.x > view.GetWidth()) << round;
        ASSERT_EQ(vertical.IsShown(), needed.y > view.GetHeight()) << round;
        const bool fits =
            needed.x <= scroller.clientRect.GetWidth() && needed.y <= scroller.clientRect.GetHeight();
        ASSERT_TRUE(!fits || (!horizontal.IsShown() && !vertical.IsShown())) << "without any bar it fits";
        scroller.ScrollTo({pick() - 20, pick() - 20});
        const MRect content = scroller.GetContainer().GetWindowContentRect();
        ASSERT_TRUE(IsInside(view, content)) << round;
        scroller.ScrollTo({1000, 1000});
        const MRect end = child.GetWindowContentRect();
        ASSERT_TRUE(end.right <= view.right && end.bottom <= view.bottom) << "the end can be seen";
    }
}

TEST_F(MScrollerTest, DoesNotMakeItsWindowLarger) {
    MControl window;
    window.SetControlType(MControlType::Window);
    auto* const scroller = new MScroller(&window, "scroller");
    window.SetClientControl(scroller);
    auto* const child = new MControl(&scroller->GetContainer(), "child");
    child->minClientSize = {700, 400};
    scroller->GetContainer().SetClientControl(child);
    window.CreateWindow(nullptr);
    EXPECT_LT(window.size.x, 300);
    EXPECT_LT(window.size.y, 300);
}

TEST_F(MScrollerTest, FollowsTheKeyboardAndTheWheel) {
    auto& scroller = Add<MScroller>({10, 10, 109, 109});
    auto* const inner = new MScroller(&scroller.GetContainer(), "inner");
    Place(*inner, {0, 0, 59, 59});
    Place(*new MControl(&inner->GetContainer()), {0, 0, 49, 199}).Set(MControlFlag::TabStop, false);
    inner->GetContainer().Set(MControlFlag::TabStop, false);
    for (int32_t i = 0; i < 12; ++i)
        Place(*new MControl(&scroller.GetContainer()), MRect::FromSize(i % 3 * 60, 70 + i * 30, 40, 20));
    Open(root);
    int32_t seen = 0;
    for (int32_t step = 0; step < 40; ++step) {
        user.HoldKeys(step < 20 ? MModifierNone : MModifierShift);
        user.PressKey(MKeyTab);
        MControl& focused = *root.GetRootState().focusedControl;
        if (focused.GetParent() != &scroller.GetContainer()) continue;
        EXPECT_TRUE(IsInside(focused.GetWindowContentRect(), GetView(scroller))) << step;
        ++seen;
    }
    EXPECT_GT(seen, 30);
    user.HoldKeys(MModifierNone);

    // At the end of the inner one the wheel turns the outer one.
    scroller.ScrollTo({});
    user.MoveMouse(inner->GetScreenPoint({10, 10}));
    for (int32_t turns = 0; turns < 20 && scroller.GetScroll().y == 0; ++turns) {
        const int32_t before = inner->GetScroll().y;
        user.TurnWheel(-120);
        EXPECT_NE(inner->GetScroll().y == before, scroller.GetScroll().y == 0) << "one of them goes on";
    }
    EXPECT_GT(scroller.GetScroll().y, 0);

    scroller.ScrollTo({});
    scroller.GetContainer().GetChildren()[1]->SetFocus();
    user.PressKey(MKeyPageDown);
    EXPECT_EQ(scroller.GetScroll().y, GetView(scroller).GetHeight()) << "also from a control in it";
}

TEST_F(MScrollerTest, FollowsACaret) {
    auto& scroller = Add<MScroller>({10, 10, 109, 109});
    auto* const edit = new MEdit(&scroller.GetContainer(), "edit");
    Place(*edit, {0, 150, 399, 173});
    Open(root);
    edit->SetFocus();
    for (const char* text : {"a", "a text that is longer than the view is"}) {
        scroller.ScrollTo({});
        user.Type(text);
        EXPECT_GE(edit->GetWindowContentRect().top, GetView(scroller).top);
        EXPECT_LE(edit->GetWindowContentRect().top + 18, GetView(scroller).bottom);
    }
    EXPECT_GT(scroller.GetScroll().x, 0);
}

class MViewerTest : public MScrollerTest {
protected:
    ~MViewerTest() noexcept override = default;

    MViewer& Show() {
        auto& viewer = Add<MViewer>({10, 10, 209, 159});
        MString text = "<l2>Licence</l2><p>Read www.example.com/a, or (https://example.com/b).";
        for (int32_t i = 0; i < 40; ++i)
            text += "<p>You <b>may</b> copy the software, and <i>use</i> it as often as you want to.";
        Open(root);
        viewer.SetText(text + Wide(u"<p>End \U0001F600 of the Licence"));
        viewer.OnLink().Connect(this, &MViewerTest::HearLink);
        return viewer;
    }
    void HearLink(const MOnStringParams& params) { log += Text(params.text) + " "; }
    std::string GetCount(MViewer& viewer) {
        for (MControl* child : viewer.GetChildren())
            for (MControl* below : child->GetChildren())
                if (below->GetName().IsExactly("count"))
                    return below->IsShown() ? Text(below->GetCaption()) : "hidden";
        return "none";
    }
};

TEST_F(MViewerTest, FindsTextByKeys) {
    MViewer& viewer = Show();
    viewer.SetFocus();
    user.HoldKeys(MModifierControl);
    user.PressKey('F');
    user.HoldKeys(MModifierNone);
    ASSERT_NE(GetCount(viewer), "hidden");
    // Across runs of other fonts and across lines.
    user.Type("YOU MAY COPY");
    EXPECT_EQ(GetCount(viewer), "1 of 40");
    EXPECT_EQ(viewer.GetScroll().y, 0);
    user.PressKey(MKeyUp);
    EXPECT_EQ(GetCount(viewer), "40 of 40");
    const int32_t last = viewer.GetScroll().y;
    EXPECT_GT(last, 0);
    user.PressKey(MKeyEnter);
    EXPECT_LT(viewer.GetScroll().y, last);
    user.Type("x");
    EXPECT_EQ(GetCount(viewer), "Nothing found");
    user.PressKey(MKeyEscape);
    EXPECT_TRUE(viewer.HasFocus());
    EXPECT_EQ(GetCount(viewer), "hidden");
    EXPECT_TRUE(root.IsShown());
    user.PressKey(MKeyEscape);
    EXPECT_FALSE(system.IsVisible(root));
    EXPECT_EQ(viewer.Find("licence"), 2);
    EXPECT_EQ(viewer.Find(Wide(u"\U0001F600 of")), 1);
    EXPECT_EQ(viewer.Find(""), 0);
}

TEST_F(MViewerTest, OpensAddresses) {
    MViewer& viewer = Show();
    const MRect view = GetView(viewer);
    Take();
    for (int32_t y = view.top; y < view.top + 70; y += 6)
        for (int32_t x = view.left; x <= view.right; x += 12) user.Click(root.GetScreenPoint({x, y}));
    // Each of several places of an address opens it, and nothing else does.
    std::set<std::string> opened;
    std::istringstream words(Take());
    for (std::string word; words >> word;) opened.insert(word);
    EXPECT_THAT(opened, testing::ElementsAre("https://example.com/b", "www.example.com/a"));
    // By the keyboard one after the other, and on to the next control.
    auto& next = Add<MControl>({0, 0, 9, 9});
    root.RebuildTabOrder();
    viewer.SetFocus();
    std::string visited;
    for (int32_t i = 0; i < 9 && !next.HasFocus(); ++i) {
        for (const int32_t key : {MKeyTab, MKeyEnter}) user.PressKey(key);
        visited += Take() + ";";
    }
    EXPECT_EQ(visited, "www.example.com/a;https://example.com/b;;");
}

TEST_F(MScrollerTest, ZoomsByKeysButtonsAndTheEndsOfTheThumb) {
    auto& zoomer = Add<MZoomer>({10, 10, 289, 23}, "zoomer");
    zoomer.SetRange(0, 100);
    zoomer.SetPageSize(40);
    zoomer.SetPosition(30);
    zoomer.SetMinimalPageSize(10);
    Open(root);
    zoomer.SetFocus();
    const auto expectView = [&](double position, double page) {
        EXPECT_NEAR(zoomer.GetPosition(), position, 0.6);
        EXPECT_NEAR(zoomer.GetPageSize(), page, 0.6);
    };
    user.PressKey(MKeyNumpadAdd, '+');
    expectView(34, 32);
    user.PressKey(MKeyNumpadSubtract, '-');
    expectView(30, 40);
    for (int32_t i = 0; i < 30; ++i) user.Type("+");
    expectView(45, 10);
    user.PressKey(MKeyNumpadDivide, '/');
    expectView(0, 100);
    for (MControl* child : zoomer.GetChildren())
        if (child->GetName().IsExactly("ZoomIn")) user.Click(At(*child));
    expectView(10, 80);

    // The upper end is dragged to the middle, and beyond the lower end.
    const auto drag = [&](int32_t from, int32_t to) {
        user.MoveMouse(zoomer.GetScreenPoint({from, 6}));
        user.PressButton();
        user.MoveMouse(zoomer.GetScreenPoint({to, 6}));
        user.ReleaseButton();
    };
    const MRect client = zoomer.clientRect;
    const int32_t arrow = 12;
    const int32_t length = client.GetWidth() - 2 * arrow;
    const auto at = [&](double share) { return client.left + arrow + static_cast<int32_t>(share * length); };
    drag(at(0.9) - 2, at(0.5));
    expectView(10, 40);
    drag(at(0.5) - 2, -100);
    expectView(10, 10);
    drag(at(0.1) + 1, 400);
    expectView(10, 10);
    drag(at(0.1) + 1, -100);
    expectView(0, 20);
}

}  // namespace
