#include "ui/widgets/splitters/MSplitter.h"
#include "foundation/xml/MXMLItem.h"
#include "tests/ui/widgets/WidgetFixture.h"

namespace {

class MSplitterTest : public WidgetTest {
protected:
    ~MSplitterTest() noexcept override = default;

    /// "first second" along the splitter.
    static std::string GetLengths(MSplitter& splitter) {
        const auto length = [&](int32_t index) {
            const MPoint size = splitter.GetPanel(index).size;
            return std::to_string(splitter.IsVertical() ? size.x : size.y);
        };
        return length(0) + " " + length(1);
    }
};

TEST_F(MSplitterTest, MovesItsBarWithinWhatThePanelsNeed) {
    for (const bool isVertical : {true, false}) {
        auto* const splitter = new MSplitter(&root, "splitter", isVertical);
        splitter->GetPanel(0).minClientSize = {42, 42};
        splitter->GetPanel(1).minClientSize = {52, 52};
        root.SetClientControl(splitter);
        Open(root, {100, 100}, {302, 302});
        // 300 pixels less a bar of 16.
        EXPECT_EQ(GetLengths(*splitter), "142 142");
        const auto drag = [&](int32_t from, int32_t to) {
            const MPoint start = splitter->GetScreenPoint(isVertical ? MPoint{from, 50} : MPoint{50, from});
            const MPoint end = splitter->GetScreenPoint(isVertical ? MPoint{to, 70} : MPoint{70, to});
            user.MoveMouse(start);
            user.PressButton();
            user.MoveMouse(end);
        };
        drag(145, 105);
        user.ReleaseButton();
        EXPECT_EQ(GetLengths(*splitter), "102 182");
        drag(110, 0);
        user.ReleaseButton();
        EXPECT_EQ(GetLengths(*splitter), "42 242");
        // Esc brings back what was, as long as the button is held.
        drag(50, 80);
        EXPECT_EQ(GetLengths(*splitter), "72 212");
        user.PressKey(MKeyEscape);
        user.MoveMouse({0, 0});
        user.ReleaseButton();
        EXPECT_EQ(GetLengths(*splitter), "42 242");
        user.PressKey(MKeyEnd);
        EXPECT_EQ(GetLengths(*splitter), "232 52");
        user.PressKey(isVertical ? MKeyLeft : MKeyUp);
        EXPECT_EQ(GetLengths(*splitter), "224 60");

        // The ratio stays with the size of the root, and with its state.
        splitter->SetRatio(1, 3);
        root.SetSize({502, 502});
        EXPECT_EQ(GetLengths(*splitter), "121 363");
        MXMLItem state("state");
        splitter->SaveState(state);
        splitter->SetRatio(1, 1);
        splitter->LoadState(state);
        EXPECT_EQ(GetLengths(*splitter), "121 363");
        delete splitter;
        system.AdvanceTime(2000);
    }
}

}  // namespace
