#include "ui/widgets/scrolling/MScrollBar.h"
#include "tests/ui/control/ControlFixture.h"

#include <random>

namespace {

class MScrollBarTest : public ControlTest, public MEventTarget {
protected:
    ~MScrollBarTest() noexcept override = default;

    /// On the window from (10, 10), 12 thick and 190 long, so the plain style's track has 166 pixels.
    void OpenWith(MScrollBar& bar) {
        const bool isVertical = bar.IsVertical();
        Place(bar, MRect::FromSize(10, 10, isVertical ? 14 : 192, isVertical ? 180 : 14));
        bar.OnChange().Connect(this, &MScrollBarTest::OnChanged);
        Open(bar.GetRoot());
    }
    void OnChanged(const MOnNotifyParams&) { ++changes; }
    /// On the screen, from the bar's own.
    static MPoint At(MScrollBar& bar, int32_t along) {
        return bar.GetScreenPoint(bar.IsVertical() ? MPoint{6, along} : MPoint{along, 6});
    }

    int32_t changes = 0;
};

TEST_F(MScrollBarTest, KeepsThePositionInsideWhateverIsSet) {
    std::mt19937 random(3);
    const double values[] = {0, 1, -1, 10, 99.5, 1e9, -1e300, 1e300, INFINITY, NAN};
    MControl root;
    MScrollBar bar(&root, "bar", true);
    OpenWith(bar);
    const auto pick = [&] { return values[random() % std::size(values)]; };
    for (int32_t round = 0; round < 3000; ++round) {
        switch (random() % 5) {
        case 0: bar.SetRange(pick(), pick()); break;
        case 1: bar.SetPageSize(pick()); break;
        case 2: bar.SetIncrease(pick()); break;
        case 3: bar.SetPosition(pick()); break;
        default: bar.Scroll(pick()); break;
        }
        user.Click(At(bar, static_cast<int32_t>(random() % 180)));
        ASSERT_GE(bar.GetPosition(), bar.GetMinimum());
        ASSERT_LE(bar.GetPosition(), std::max(bar.GetMinimum(), bar.GetMaximum() - bar.GetPageSize()));
    }
    root.RedrawNow();
}

TEST_F(MScrollBarTest, MovesByStepsPagesAndDrags) {
    for (const bool isVertical : {false, true}) {
        changes = 0;
        MControl root;
        MScrollBar bar(&root, "bar", isVertical);
        bar.SetRange(0, 1000);
        bar.SetPageSize(100);
        bar.SetIncrease(7);
        OpenWith(bar);
        const int32_t end = isVertical ? 175 : 187;
        user.Click(At(bar, end));
        EXPECT_EQ(bar.GetPosition(), 7);
        user.Click(At(bar, 4));
        EXPECT_EQ(bar.GetPosition(), 0);
        user.Click(At(bar, end / 2));
        EXPECT_EQ(bar.GetPosition(), 100);
        user.TurnWheel(-120);
        EXPECT_EQ(bar.GetPosition(), 121);
        EXPECT_EQ(changes, 4);

        bar.SetFocus();
        for (const auto& [key, expected] : {std::pair{isVertical ? MKeyDown : MKeyRight, 128},
                                            {isVertical ? MKeyUp : MKeyLeft, 121},
                                            {MKeyPageDown, 221},
                                            {MKeyPageUp, 121},
                                            {MKeyEnd, 900},
                                            {MKeyHome, 0}}) {
            user.PressKey(key);
            EXPECT_EQ(bar.GetPosition(), expected) << key;
        }

        // A press on the track goes on until the thumb is there, and no further.
        user.MoveMouse(At(bar, end / 2));
        user.PressButton();
        system.AdvanceTime(3000);
        user.ReleaseButton();
        EXPECT_EQ(bar.GetPosition(), 400);

        // The thumb follows the mouse, also beyond the bar; Esc takes it back.
        bar.SetPosition(0);
        user.MoveMouse(At(bar, 16));
        user.PressButton();
        user.MoveMouse(At(bar, 1000));
        EXPECT_EQ(bar.GetPosition(), 900);
        user.PressKey(MKeyEscape);
        user.MoveMouse(At(bar, 100));
        EXPECT_EQ(bar.GetPosition(), 0);
        user.ReleaseButton();
        EXPECT_TRUE(root.Is(MControlFlag::Visible));
    }
}

TEST_F(MScrollBarTest, SurvivesItsEndInAHandler) {
    struct Ender : MEventTarget {
        void OnChanged(const MOnNotifyParams&) { delete std::exchange(bar, nullptr); }
        MScrollBar* bar = nullptr;
    };
    for (const int32_t place : {-1, 4, 60, 130, 187}) {
        MControl root;
        Ender ender;
        ender.bar = new MScrollBar(&root, "bar");
        ender.bar->SetPosition(45);
        OpenWith(*ender.bar);
        ender.bar->OnChange().Connect(&ender, &Ender::OnChanged);
        if (place < 0) ender.bar->SetRange(0, 20);
        if (!ender.bar) continue;
        user.MoveMouse(At(*ender.bar, place));
        user.PressButton();
        system.AdvanceTime(1000);
        user.ReleaseButton();
        EXPECT_EQ(ender.bar, nullptr) << place;
    }
}

}  // namespace
