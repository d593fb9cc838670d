// What holds for every tree of nested layouts, made by chance. A failure tells the seed of its tree.

#include "tests/ui/layout/LayoutFixture.h"
#include "ui/layout/MLayoutClient.h"
#include "ui/layout/MLayoutCorner.h"
#include "ui/layout/MLayoutGrid.h"
#include "ui/layout/MLayoutOccupyBorder.h"
#include "ui/layout/MLayoutSide.h"
#include "ui/layout/MLayoutSwitch.h"

#include <random>
#include <vector>

namespace {

struct Random : std::mt19937 {
    using mersenne_twister_engine::mersenne_twister_engine;

    /// Both ends are included.
    int32_t Get(int32_t least, int32_t most) {
        return least + static_cast<int32_t>((*this)() % static_cast<uint32_t>(most - least + 1));
    }
    bool IsOneOf(int32_t count) { return Get(1, count) == 1; }
};

/// Numbers that a document may hold although nobody means them.
int32_t GetWild(Random& random) {
    constexpr int32_t Most = std::numeric_limits<int32_t>::max();
    constexpr int32_t Numbers[] = {-Most - 1, -Most, -70000, -1, 0, 1, 99, 70000, Most / 2, Most - 1, Most};
    return Numbers[random.Get(0, 10)];
}

/// Makes trees; those of wild numbers only to see that nothing overflows.
class Trees {
public:
    Trees(uint32_t seed, bool isWild) : random(seed), isWild(isWild) {}

    void Fill(MControl& parent, int32_t depth) {
        for (int32_t strips = random.Get(0, 2); strips > 0; --strips)
            AddControls(*new MLayoutSide(parent, static_cast<MSideDirection>(random.Get(0, 3))), depth);
        if (random.IsOneOf(4)) {
            auto& border = *new MLayoutOccupyBorder(parent);
            for (int32_t* side : {&border.x1, &border.y1, &border.x2, &border.y2}) *side = GetNumber(0, 9);
        }
        if (random.IsOneOf(5)) {
            auto& corners = *new MLayoutCorner(parent);
            for (int32_t count = random.Get(1, 6); count > 0; --count)
                corners.Add(MakeControl(parent, depth, false), static_cast<MCornerTarget>(random.Get(0, 7)));
        }
        if (random.IsOneOf(3) && AddGrid(parent, depth).verticalFill) return;
        switch (random.Get(0, 4)) {
        case 0: AddControls(*new MLayoutHorizontal(parent), depth); break;
        case 1: AddControls(*new MLayoutVertical(parent), depth); break;
        case 2: AddControls(*new MLayoutSwitch(parent), depth); break;
        case 3: parent.SetClientControl(&MakeControl(parent, depth)); break;
        default: break;
        }
    }

private:
    int32_t GetNumber(int32_t least, int32_t most) {
        return isWild && random.IsOneOf(3) ? GetWild(random) : random.Get(least, most);
    }

    int32_t GetRatio() { return random.IsOneOf(2) ? 0 : GetNumber(1, 300); }

    MControl& MakeControl(MControl& parent, int32_t depth, bool mayBePlastic = true) {
        const bool isText = mayBePlastic && random.IsOneOf(6);
        MControl& control = isText ? *new TextOfArea(&parent, GetNumber(1, 4000)) : *new MControl(&parent);
        control.layoutRatio = {GetRatio(), GetRatio()};
        control.layoutBorder = {GetNumber(0, 4), GetNumber(0, 4)};
        control.layoutPlacement = static_cast<MAlignment>(random.Get(0, 2) | random.Get(0, 2) << 2);
        if (isText) return control;
        control.minClientSize = {GetNumber(1, 60), GetNumber(1, 40)};
        if (isWild) {
            control.position = {GetNumber(0, 100), GetNumber(0, 100)};
            control.size = {GetNumber(0, 100), GetNumber(0, 100)};
            control.maximalSize.x = GetNumber(0, 1000);
        }
        if (random.IsOneOf(9)) control.SetVisible(false);
        if (random.IsOneOf(9)) control.SetCollapsed(true);
        if (random.IsOneOf(5)) control.SetControlType(MControlType::Panel);
        if (depth > 0 && random.IsOneOf(4)) Fill(control, depth - 1);
        return control;
    }

    void AddControls(MLayout& layout, int32_t depth) {
        layout.space = GetNumber(-10, 5);
        for (int32_t count = random.Get(0, 4); count > 0; --count) {
            MControl& control = MakeControl(layout.GetOwner(), depth);
            layout.Add(control);
            control.layoutSpaceAfter = random.IsOneOf(4) ? GetNumber(-3, 9) : 0;
        }
    }

    MLayoutGrid& AddGrid(MControl& parent, int32_t depth) {
        auto& grid = *new MLayoutGrid(parent, random.Get(1, 5));
        grid.verticalFill = random.IsOneOf(2);
        grid.columnSpanCount = GetNumber(0, 3);
        for (int32_t count = random.Get(0, 10); count > 0; --count) {
            MControl& control = MakeControl(parent, depth);
            grid.Add(control);
            if (random.IsOneOf(4)) grid.SetSpanX(control, GetNumber(1, 4), random.IsOneOf(2));
            if (random.IsOneOf(4)) grid.SetSpanY(control, GetNumber(1, 4));
        }
        return grid;
    }

    Random random;
    const bool isWild;
};

bool IsStretched(const MControl& control, MAxis axis) {
    return control.layoutRatio[axis] > 0 || control.Is(MControlFlag::Plastic);
}

/// Calls for each child that a layout has placed.
template <class Action>
void ForEachPlaced(const MControl& parent, Action action) {
    for (MControl* child : parent.GetChildren())
        if (child->Is(MControlFlag::Visible) && child->IsHeld()) action(*child);
}

/// Sizes and places, of all controls that are placed.
std::vector<MRect> GetPlaces(const MControl& parent) {
    std::vector<MRect> places;
    ForEachPlaced(parent, [&](MControl& child) {
        places.push_back(GetPlace(child));
        const std::vector<MRect> below = GetPlaces(child);
        places.insert(places.end(), below.begin(), below.end());
    });
    return places;
}

void ExpectOrder(MControl& parent) {
    std::vector<MRect> taken;
    ForEachPlaced(parent, [&](MControl& child) {
        const MRect place = GetPlace(child);
        ASSERT_EQ(place.Intersected(parent.clientRect), place.IsEmpty() ? MRect() : place) << "outside";
        for (const MRect& other : taken) ASSERT_TRUE(place.Intersected(other).IsEmpty()) << "overlaps";
        taken.push_back(place);
        if (child.Is(MControlFlag::Collapsed)) return;
        ASSERT_GE(child.size.x, child.Is(MControlFlag::Plastic) ? 0 : child.minimalSize.x);
        ASSERT_GE(child.size.y, child.Is(MControlFlag::Plastic) ? child.GetPlasticSize(1, child.size.x)
                                                                : child.minimalSize.y);
        ExpectOrder(child);
    });
}

/// The stretching controls of rows and columns have their part of what those share: less than a pixel of
/// rounding goes on from each to the next.
void ExpectProportions(MControl& parent) {
    if (parent.Is(MControlFlag::Collapsed)) return;
    for (MLayout* layout : parent.GetLayouts())
        if (const auto* const flow = dynamic_cast<MLayoutClient*>(layout)) {
            const MAxis axis = flow->direction;
            std::vector<std::pair<double, int32_t>> shares;
            double length = 0;
            double weights = 0;
            for (const MControl* control : flow->GetControls()) {
                if (!control->Is(MControlFlag::Visible)) continue;
                if (axis == MAxis::Y && control->Is(MControlFlag::Collapsed)) continue;
                if (control->layoutRatio[axis] == 0) continue;
                shares.emplace_back(control->layoutRatio[axis],
                                    control->size[axis] + 2 * control->layoutBorder[axis]);
                weights += shares.back().first;
                length += shares.back().second;
            }
            const auto rounding = static_cast<double>(shares.size()) - 1;
            for (const auto& [weight, share] : shares)
                EXPECT_NEAR(share, weight * length / weights, std::max(rounding, 0.0));
        }
    ForEachPlaced(parent, ExpectProportions);
}

/// The sizes of what does not stretch.
std::vector<int32_t> GetFixedSizes(const MControl& parent) {
    std::vector<int32_t> sizes;
    ForEachPlaced(parent, [&](const MControl& child) {
        for (const MAxis axis : {MAxis::X, MAxis::Y})
            if (!IsStretched(child, axis)) sizes.push_back(child.size[axis]);
        const std::vector<int32_t> below = GetFixedSizes(child);
        sizes.insert(sizes.end(), below.begin(), below.end());
    });
    return sizes;
}

using LayoutProperties = LayoutFixture;

TEST_F(LayoutProperties, HoldWhereThereIsRoomForTheMinimalSize) {
    for (uint32_t seed = 0; seed < TREES && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        MControl root;
        Trees(seed, false).Fill(root, 3);
        root.ComputeMinimalSize();
        const MPoint minimal = root.minimalSize;
        const std::vector<int32_t> fixed = GetFixedSizes(root);
        Random random(seed);
        for (const MPoint more : {MPoint(), MPoint{random.Get(0, 300), random.Get(0, 300)}, MPoint()}) {
            ArrangeAt(root, minimal + more);
            ExpectOrder(root);
            ExpectProportions(root);
            EXPECT_EQ(GetFixedSizes(root), fixed);
            const std::vector<MRect> places = GetPlaces(root);
            root.ArrangeChildren();
            EXPECT_TRUE(GetPlaces(root) == places) << "arranging twice";
        }
        root.ComputeMinimalSize();
        EXPECT_EQ(root.minimalSize, minimal) << "measuring twice";
    }
}

TEST_F(LayoutProperties, OfWildNumbersStayInTheRangeOfRectangles) {
    constexpr int32_t Most = 1 << 30;
    for (uint32_t seed = 0; seed < TREES && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        MControl root;
        Trees(seed, true).Fill(root, 3);
        root.ComputeMinimalSize();
        root.ComputeCurrentSize();
        for (const MPoint size : {root.size, MPoint{300, 200}, MPoint{}}) {
            ArrangeAt(root, size);
            for (const MRect& place : GetPlaces(root))
                for (const int32_t edge : {place.left, place.top, place.right, place.bottom}) {
                    EXPECT_LE(edge, Most);
                    EXPECT_GE(edge, -Most);
                }
        }
    }
}

}  // namespace
