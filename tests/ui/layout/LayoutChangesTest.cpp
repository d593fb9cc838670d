// What happens to layouts while controls come, go and change.

#include "foundation/base/MException.h"
#include "foundation/xml/MXMLItem.h"
#include "tests/ui/layout/LayoutFixture.h"
#include "ui/layout/MLayoutClient.h"
#include "ui/layout/MLayoutCorner.h"
#include "ui/layout/MLayoutGrid.h"
#include "ui/layout/MLayoutOccupyBorder.h"
#include "ui/layout/MLayoutSide.h"
#include "ui/layout/MLayoutSwitch.h"

#include <initializer_list>
#include <utility>

namespace {

using LayoutChanges = LayoutFixture;

template <class Action>
MString GetFailure(Action action) {
    try {
        action();
    } catch (const MException& exception) {
        return exception.GetMessage();
    }
    return {};
}

MXMLItem& Fill(MXMLItem& item, std::initializer_list<std::pair<const char*, int32_t>> attributes) {
    for (const auto& [name, value] : attributes) item.SetAttribute(name, value);
    return item;
}

TEST_F(LayoutChanges, CollapsingAWindowsPanelShrinksTheWindowByWhatItNeedsLess) {
    MControl window;
    MLayout* const column = new MLayoutVertical(window);
    MControl& panel = AddBox(window, column, {50, 100}, {100, 0});
    MControl& list = AddBox(window, column, {50, 30});
    list.SetClientControl(&AddBox(list, nullptr, {40, 20}));
    window.CreateWindow(nullptr);
    window.ShowWindow();
    window.SetSize({300, 400});
    window.SetPosition({70, 60});
    const int32_t listHeight = list.size.y;

    panel.SetCollapsed(true);
    EXPECT_EQ(panel.GetShownSize().y, MPlainStyle::CaptionHeight + 1);
    EXPECT_EQ(window.size, (MPoint{300, 400 - 100 + panel.GetShownSize().y}));
    EXPECT_EQ(list.size.y, listHeight);
    EXPECT_EQ(windows->GetSystem().GetFrame(window), MRect::FromSize(70, 60, 300, window.size.y));

    panel.SetCollapsed(false);
    EXPECT_EQ(window.size, (MPoint{300, 400}));
    EXPECT_EQ(panel.GetShownSize().y, 100);
}

TEST_F(LayoutChanges, AFixedControlsNewSizeMovesItsNeighbours) {
    MControl window;
    MLayout* const strip = new MLayoutLeft(window);
    MControl& first = AddBox(window, strip, {20, 20}, {0, 0});
    MControl& second = AddBox(window, strip, {20, 20}, {0, 0});
    window.CreateWindow(nullptr);
    window.ShowWindow();
    first.SetSize({20, 50});
    EXPECT_EQ(GetPlace(second).top - GetPlace(first).bottom, MPlainStyle::Space + 1);
    first.SetVisible(false);
    window.UpdateLayout();
    EXPECT_EQ(second.position, window.clientRect.GetTopLeft());
}

TEST_F(LayoutChanges, AControlIsHeldAtOnePlace) {
    MControl root;
    auto& grid = *new MLayoutGrid(root, 2);
    auto& corners = *new MLayoutCorner(root);
    MControl& box = AddBox(root, &grid, {10, 10});
    MControl& other = AddBox(root, &grid, {10, 10});
    corners.Add(box, MCornerTarget::TopLeft);
    EXPECT_EQ(grid.GetCell(0, 0), nullptr);
    corners.Add(other, MCornerTarget::TopLeft);
    EXPECT_FALSE(box.IsHeld());
    EXPECT_EQ(grid.GetRowCount(), 0);
    corners.Add(other, MCornerTarget::Left);
    root.SetClientControl(&other);
    EXPECT_EQ(other.parentLayout, nullptr);
    grid.Add(other);
    EXPECT_EQ(root.GetClientControl(), nullptr);
    delete &other;
    EXPECT_EQ(grid.GetRowCount(), 0);
    delete &grid;
    EXPECT_EQ(root.GetLayouts().GetCount(), 1);
}

TEST_F(LayoutChanges, AGridGoesOnWhereThereIsAFreeCell) {
    MControl root;
    MXMLItem item("grid");
    auto& grid = *new MLayoutGrid(root);
    grid.LoadFromXml(Fill(item, {{"columns", 3}, {"rows", 1}, {"layoutspace", 2}, {"deflayoutborderx", 4}}));
    const auto add = [&](int32_t columnSpan, int32_t rowSpan) -> MControl& {
        MControl& box = AddBox(root, &grid, {10, 10});
        MXMLItem cell("control");
        grid.LoadControlParameters(box, Fill(cell, {{"hspan", columnSpan}, {"vspan", rowSpan}}));
        return box;
    };
    MControl& high = add(1, 3);
    MControl& wide = add(2, 1);
    MControl& below = add(1, 1);
    EXPECT_EQ(high.layoutBorder, (MPoint{4, 0}));
    EXPECT_EQ(grid.GetCell(0, 1), &wide);
    EXPECT_EQ(grid.GetCell(1, 1), &below);
    EXPECT_EQ(grid.GetRowCount(), 2);
    grid.AttachAt(high, 1, 1);
    EXPECT_FALSE(below.IsHeld());
    grid.SetColumnCount(1);
    EXPECT_FALSE(wide.IsHeld());
    EXPECT_EQ(grid.GetRowCount(), 0);
}

TEST_F(LayoutChanges, ASwitchGoesOnWithoutThePagesThatEnd) {
    struct Page : MControl {
        using MControl::MControl;
        ~Page() noexcept override = default;
        bool ProcessEvent(const MSystemEvent&) override {
            return delete std::exchange(doomed, nullptr), true;
        }
        MControl* doomed = nullptr;
    };
    MControl root;
    auto& pages = *new MLayoutSwitch(root);
    auto* const first = new Page(&root);
    MControl& second = AddBox(root, nullptr, {10, 10});
    pages.Add(*first);
    pages.Add(second);
    pages.Add(*(first->doomed = new MControl(&root)));
    pages.SetActive(&second);
    EXPECT_EQ(pages.GetControls().GetCount(), 2);
    EXPECT_EQ(pages.GetActive(), &second);
    EXPECT_FALSE(root.Is(MControlFlag::Frozen));
}

TEST_F(LayoutChanges, WhatCannotBeIsRefused) {
    MControl root;
    MControl& box = AddBox(root, nullptr, {10, 10});
    auto& border = *new MLayoutOccupyBorder(root);
    auto& corners = *new MLayoutCorner(root);
    auto& side = *new MLayoutLeft(root);
    MXMLItem item("border");
    border.LoadFromXml(Fill(item, {{"x1", 1}, {"y1", 2}, {"x2", 3}, {"y2", 4}}));
    EXPECT_EQ(border.y2, 2);
    EXPECT_EQ(GetFailure([&] { border.Add(box); }),
              "Service \"add control to occupy-space layout\" is not implemented.");
    MControl stranger;
    for (MControl* control : {&root, &stranger}) {
        EXPECT_EQ(GetFailure([&] { side.Add(*control); }), "A layout can place only what lies in its owner.");
        EXPECT_EQ(GetFailure([&] { root.SetClientControl(control); }),
                  "Only a child can be the client control.");
    }
    MXMLItem target("control");
    EXPECT_EQ(GetFailure([&] {
                  corners.LoadControlParameters(box, Fill(target, {{"target", 8}}));
              }),
              "Invalid target for corner layout.");
    side.direction = static_cast<MSideDirection>(4);
    EXPECT_EQ(GetFailure([&] { static_cast<void>(side.Arrange(root, {})); }),
              "Invalid side-layout direction.");
    box.Set(MControlFlag::Plastic);
    EXPECT_EQ(GetFailure([&] { root.ComputeMinimalSize(); }),
              "Service \"compute plastic control size\" is not implemented.");
}

}  // namespace
