// Each layout by cases that were worked out by hand.

#include "tests/ui/layout/LayoutFixture.h"
#include "ui/layout/MLayoutClient.h"
#include "ui/layout/MLayoutCorner.h"
#include "ui/layout/MLayoutGrid.h"
#include "ui/layout/MLayoutOccupyBorder.h"
#include "ui/layout/MLayoutSide.h"
#include "ui/layout/MLayoutSwitch.h"

#include <ostream>
#include <vector>

void PrintTo(const MRect& rect, std::ostream* out) {
    *out << rect.left << "," << rect.top << " " << rect.GetWidth() << "x" << rect.GetHeight();
}

void PrintTo(MPoint point, std::ostream* out) {
    *out << point.x << "," << point.y;
}

namespace {

constexpr int32_t Gap = MPlainStyle::Space;

struct Case {
    const char* name;
    void (*build)(MControl& root);
    MPoint minimal;
    MPoint size;
    std::vector<MRect> places;  ///< of the children
};

MRect At(int32_t left, int32_t top, int32_t width, int32_t height) {
    return MRect::FromSize(left, top, width, height);
}

struct Picture : MControl {
    using MControl::MControl;
    ~Picture() noexcept override = default;
    void GetMinimalContentSize(int32_t& x, int32_t& y) override { x = 20, y = 10; }
};

const std::vector<Case> Cases = {
    {"a greatest size and a locked least size count",
     [](MControl& root) {
         MLayout* const row = new MLayoutHorizontal(root);
         AddBox(root, row, {30, 10}, {0, 0}).maximalSize = {20, 50};
         MControl& locked = AddBox(root, row, {10, 10}, {0, 0});
         locked.minimalSize = {40, 10};
         locked.Set(MControlFlag::MinimalSizeLocked);
     },
     {20 + Gap + 40, 10},
     {100, 20},
     {At(0, 5, 20, 10), At(28, 5, 40, 10)}},
    {"offsets shift, but not what has an absolute position",
     [](MControl& root) {
         MLayout* const row = new MLayoutHorizontal(root);
         AddBox(root, row, {10, 10}, {0, 0}).layoutOffset = {5, 6};
         MControl& absolute = AddBox(root, row, {10, 10}, {0, 0});
         absolute.layoutOffset = {5, 6};
         absolute.Set(MControlFlag::PositionIsAbsolute);
         AddBox(root, nullptr, {10, 10}).position = {1, 2};
         root.clientOffset = {3, -4};
     },
     {20 + Gap, 12},
     {100, 12},
     {At(5, 7, 10, 10), At(18, 1, 10, 10), At(4, -2, 10, 10)}},
    {"a content has a gap in front of it",
     [](MControl& root) {
         auto& picture = *new Picture(&root);
         AddBox(picture, new MLayoutTop(picture), {30, 10});
         root.SetClientControl(&picture);
     },
     {30, 10 + Gap},
     {100, 90},
     {At(0, 0, 100, 90)}},
    {"the last of three equal ones takes what rounding leaves",
     [](MControl& root) {
         MLayout* const row = new MLayoutHorizontal(root);
         row->space = -Gap;
         for (int i = 0; i < 3; ++i) AddBox(root, row, {10, 5});
     },
     {30, 5},
     {100, 20},
     {At(0, 0, 33, 20), At(33, 0, 33, 20), At(66, 0, 34, 20)}},
    {"fixed ones keep their length, and gaps of their own come behind them",
     [](MControl& root) {
         MLayout* const column = new MLayoutVertical(root);
         AddBox(root, column, {10, 20}, {0, 0}).layoutSpaceAfter = 5;
         AddBox(root, column, {10, 10}, {100, 300});
         AddBox(root, column, {10, 10}, {100, 100});
     },
     {10, 20 + 5 + 2 * Gap + 40},
     {40, 20 + 5 + 2 * Gap + 100},
     {At(15, 0, 10, 20), At(0, 33, 40, 75), At(0, 116, 40, 25)}},
    {"a collapsed control keeps what is left of its height, and others share the rest",
     [](MControl& root) {
         MLayout* const column = new MLayoutVertical(root);
         AddBox(root, column, {10, 50}).SetCollapsed(true);
         AddBox(root, column, {10, 10});
     },
     {10, MPlainStyle::CaptionHeight + 1 + Gap + 10},
     {40, 131},
     {At(0, 0, 40, 23), At(0, 31, 40, 100)}},
    {"strips take their sides in order, the client control the rest",
     [](MControl& root) {
         AddBox(root, new MLayoutTop(root), {30, 10});
         AddBox(root, new MLayoutLeft(root), {20, 40});
         AddBox(root, new MLayoutRight(root), {15, 10});
         AddBox(root, new MLayoutBottom(root), {10, 12});
         root.SetClientControl(&AddBox(root, nullptr, {5, 6}));
     },
     {20 + Gap + 10 + Gap + 15, 10 + Gap + 40},
     {100, 100},
     {At(0, 0, 100, 10), At(0, 18, 20, 82), At(85, 18, 15, 82), At(28, 88, 49, 12), At(28, 18, 49, 62)}},
    {"without a visible control a strip takes nothing, and nothing comes behind the last one",
     [](MControl& root) {
         AddBox(root, new MLayoutTop(root), {30, 10}).SetVisible(false);
         AddBox(root, new MLayoutLeft(root), {20, 40});
     },
     {20, 40},
     {100, 60},
     {{}, At(0, 0, 20, 60)}},
    {"a text at the top is as high as its lines are at that width",
     [](MControl& root) {
         (new MLayoutTop(root))->Add(*new TextOfArea(&root, 1000));
         root.SetClientControl(&AddBox(root, nullptr, {50, 10}));
     },
     {50, 24 + Gap + 10},  // of a screen's shape 42 by 24
     {100, 100},
     {At(0, 0, 100, 10), At(0, 18, 100, 82)}},
    {"a fixed control stands where its placement says, inside of its border",
     [](MControl& root) {
         MControl& box = AddBox(root, nullptr, {10, 20}, {0, 0});
         box.layoutBorder = {3, 4};
         box.layoutPlacement = MAlignRight | MAlignBottom;
         root.SetClientControl(&box);
     },
     {16, 28},
     {100, 90},
     {At(87, 66, 10, 20)}},
    {"a filling control is the rectangle without its border, whatever its ratio",
     [](MControl& root) {
         MControl& box = AddBox(root, nullptr, {10, 20}, {0, 0});
         box.layoutBorder = {3, 4};
         box.layoutPlacement = MAlignFill;
         root.SetClientControl(&box);
     },
     {16, 28},
     {100, 90},
     {At(3, 4, 94, 82)}},
    {"margins leave a pixel even if they are wider than all",
     [](MControl& root) {
         auto& border = *new MLayoutOccupyBorder(root);
         border.x1 = 7;
         border.y1 = border.y2 = 5;
         border.x2 = 500;
         root.SetClientControl(&AddBox(root, nullptr, {10, 10}));
     },
     {507 + Gap + 10, 10 + Gap + 10},
     {100, 100},
     {At(7, 5, 1, 90)}},
    {"of pages the one that is visible has all of the place",
     [](MControl& root) {
         auto& pages = *new MLayoutSwitch(root);
         AddBox(root, &pages, {30, 10});
         AddBox(root, &pages, {10, 40});
         pages.SetActive(root.GetChildren()[1]);
     },
     {10, 40},
     {50, 60},
     {{}, At(0, 0, 50, 60)}},
    {"hidden pages are measured if that is asked for",
     [](MControl& root) {
         auto& pages = *new MLayoutSwitch(root);
         pages.measureHidden = true;
         AddBox(root, &pages, {30, 10});
         AddBox(root, &pages, {10, 40});
     },
     {30, 40},
     {50, 60},
     {At(0, 0, 50, 60), {}}},
    {"corners and strips have columns and rows in common",
     [](MControl& root) {
         auto& corners = *new MLayoutCorner(root);
         corners.Add(AddBox(root, nullptr, {20, 12}), MCornerTarget::TopLeft);
         corners.Add(AddBox(root, nullptr, {30, 10}), MCornerTarget::Top);
         corners.Add(AddBox(root, nullptr, {10, 40}), MCornerTarget::Left);
         corners.Add(AddBox(root, nullptr, {16, 8}), MCornerTarget::Bottom);
         root.SetClientControl(&AddBox(root, nullptr, {5, 5}));
     },
     {20 + Gap + 30, 12 + Gap + 40 + 8},
     {100, 100},
     {At(0, 0, 20, 12), At(28, 0, 72, 12), At(0, 20, 20, 72), At(20, 92, 80, 8), At(28, 20, 72, 64)}},
    {"columns share what is left by their greatest ratios, rows are as high as their highest",
     [](MControl& root) {
         MLayout* const grid = new MLayoutGrid(root, 2);
         AddBox(root, grid, {30, 10}, {0, 100});
         AddBox(root, grid, {10, 20}, {100, 100});
         AddBox(root, grid, {20, 15}, {0, 0});
     },
     {30 + Gap + 10, 20 + Gap + 15},
     {100, 100},
     {At(0, 0, 30, 20), At(38, 0, 62, 20), At(5, 28, 20, 15)}},
    {"columns grow alike for a wide control, and the first takes what division leaves",
     [](MControl& root) {
         MLayout* const grid = new MLayoutGrid(root, 3);
         for (int i = 0; i < 3; ++i) AddBox(root, grid, {10, 10}, {0, 0});
         MControl& wide = AddBox(root, grid, {51 + 2 * Gap, 10}, {0, 0});
         grid->SetSpanX(wide, 3, true);
         AddBox(root, grid, {18, 10}, {0, 0});
     },
     {51 + 2 * Gap, 10 + Gap + 10 + Gap + 10},
     {100, 100},
     {At(6, 0, 10, 10), At(33, 0, 10, 10), At(55, 0, 10, 10), At(0, 18, 67, 10), At(2, 36, 18, 10)}},
    {"a control that spans rows keeps its cells, and rows fill the height if that is asked for",
     [](MControl& root) {
         auto& grid = *new MLayoutGrid(root, 2);
         grid.verticalFill = true;
         MControl& high = AddBox(root, &grid, {10, 60}, {100, 100});
         grid.SetSpanY(high, 2);
         AddBox(root, &grid, {10, 10}, {100, 100});
         AddBox(root, &grid, {10, 10}, {100, 300});
     },
     {20 + Gap, 60},
     {48, 108},
     {At(0, 0, 20, 108), At(28, 0, 20, 25), At(28, 33, 20, 75)}},
    {"a row of nothing but text is as high as its lines in the columns' width",
     [](MControl& root) {
         MLayout* const grid = new MLayoutGrid(root, 2);
         AddBox(root, grid, {42, 10}, {0, 100});
         AddBox(root, grid, {50, 10}, {100, 100});
         auto& text = *new TextOfArea(&root, 1000);
         grid->Add(text);
         grid->SetSpanX(text, 2, true);
     },
     {100, 10 + Gap + 10},
     {250, 100},
     {At(0, 0, 42, 10), At(50, 0, 200, 10), At(0, 18, 250, 4)}},
    {"columns that belong together are equally wide if only some of them stretch",
     [](MControl& root) {
         auto& grid = *new MLayoutGrid(root, 4);
         grid.columnSpanCount = 2;
         for (const int32_t ratio : {0, 0, 100, 0})
             AddBox(root, &grid, {ratio == 0 ? 10 : 20, 10}, {ratio, 100});
     },
     {60 + 3 * Gap, 10},
     {200, 50},
     {At(5, 0, 10, 10), At(28, 0, 10, 10), At(46, 0, 20, 10), At(74, 0, 10, 10)}},
    {"and stretch together if all of them do",
     [](MControl& root) {
         auto& grid = *new MLayoutGrid(root, 4);
         grid.columnSpanCount = 2;
         for (const int32_t ratio : {100, 0, 100, 0}) AddBox(root, &grid, {10, 10}, {ratio, 100});
     },
     {40 + 3 * Gap, 10},
     {200, 50},
     {At(0, 0, 78, 10), At(86, 0, 10, 10), At(104, 0, 78, 10), At(190, 0, 10, 10)}},
};

using LayoutCases = LayoutFixture;

TEST_F(LayoutCases, AreMeasuredAndPlaced) {
    for (const Case& tested : Cases) {
        SCOPED_TRACE(tested.name);
        MControl root;
        tested.build(root);
        root.ComputeMinimalSize();
        EXPECT_EQ(root.minimalSize, tested.minimal);
        ArrangeAt(root, tested.size);
        ASSERT_EQ(root.GetChildren().GetCount(), static_cast<int32_t>(tested.places.size()));
        for (int32_t i = 0; i < root.GetChildren().GetCount(); ++i) {
            const MControl& child = *root.GetChildren()[i];
            const MRect place = child.Is(MControlFlag::Visible) ? GetPlace(child) : MRect();
            EXPECT_EQ(place, tested.places[static_cast<size_t>(i)]) << "child " << i;
        }
    }
}

}  // namespace
