#include "ui/widgets/trees/MTreeControl.h"
#include "tests/ui/widgets/WidgetFixture.h"

#include <random>

namespace {

class MTreeControlTest : public WidgetTest {
protected:
    MTreeControlTest() {
        root.SetClientControl(&tree);
        tree.GetRootItem().text = "root";
        Listen(tree);
        Open(root);
        tree.SetFocus();
    }
    ~MTreeControlTest() noexcept override = default;

    /// The rows with their depths: "root;.a;..b*", with a mark at the selected one.
    std::string GetRows() {
        std::string rows;
        for (int32_t row = 0; row < tree.GetRowCount(); ++row) {
            rows += rows.empty() ? "" : ";";
            const MTreeItemBase* above = &tree.GetRow(row);
            while ((above = above->GetParentItem())) rows += ".";
            rows += Text(tree.GetRow(row).text) + (tree.GetRow(row).isSelected ? "*" : "");
        }
        return rows;
    }
    MPoint GetPlace(int32_t row) {
        const MRect rect = tree.GetRowRect(row);
        return tree.GetScreenPoint({rect.right - 20, (rect.top + rect.bottom) / 2});
    }
    /// MPlainStyle indents by 6 pixels, and has a border of as many.
    MPoint GetExpander(int32_t row, int32_t depth) {
        return {tree.GetScreenPoint({tree.GetRowRect(row).left + 9 + depth * 6, 0}).x, GetPlace(row).y};
    }

    MTreeControl& tree = *new MTreeControl(&root, "tree");
};

/// A tree as its user sees it: items by number, of which 0 is the root.
struct Model {
    std::vector<int32_t> parents{-1};
    std::vector<bool> isOpen{false};
    int32_t selected = -1;

    [[nodiscard]] std::vector<int32_t> GetRows() const {
        std::vector<int32_t> rows;
        Append(rows, 0);
        return rows;
    }
    void Append(std::vector<int32_t>& rows, int32_t item) const {
        rows.push_back(item);
        for (size_t i = 0; isOpen[static_cast<size_t>(item)] && i < parents.size(); ++i)
            if (parents[i] == item) Append(rows, static_cast<int32_t>(i));
    }
    [[nodiscard]] bool HasChildren(int32_t item) const { return std::ranges::count(parents, item) > 0; }
    [[nodiscard]] int32_t GetParent(int32_t item) const { return parents[static_cast<size_t>(item)]; }
    void SetOpen(int32_t item, bool isNowOpen) {
        if (!HasChildren(item)) return;
        isOpen[static_cast<size_t>(item)] = isNowOpen;
        for (int32_t on = selected; !isNowOpen && on >= 0; on = GetParent(on))
            if (GetParent(on) == item) selected = item;
    }
    void Press(int32_t key) {
        const std::vector<int32_t> rows = GetRows();
        const auto row = static_cast<size_t>(std::ranges::find(rows, selected) - rows.begin());
        const bool isOpened = isOpen[static_cast<size_t>(selected)];
        switch (key) {
        case MKeyUp: selected = rows[row > 0 ? row - 1 : 0]; break;
        case MKeyDown: selected = rows[std::min(row + 1, rows.size() - 1)]; break;
        case MKeyHome: selected = rows.front(); break;
        case MKeyEnd: selected = rows.back(); break;
        case MKeyNumpadAdd:
        case MKeyNumpadSubtract: SetOpen(selected, key == MKeyNumpadAdd); break;
        case MKeyEnter: SetOpen(selected, !isOpened); break;
        case MKeyRight:
            if (isOpened && HasChildren(selected))
                selected = rows[row + 1];
            else
                SetOpen(selected, true);
            break;
        case MKeyLeft:
            if (isOpened && HasChildren(selected))
                SetOpen(selected, false);
            else if (selected > 0)
                selected = GetParent(selected);
            break;
        }
    }
};

TEST_F(MTreeControlTest, OpensAndSelectsAsItsModel) {
    std::mt19937 random(20261122);
    const auto get = [&](size_t count) { return random() % count; };
    Model model;
    std::vector<MTreeControlItem*> items{&tree.GetRootItem()};
    const auto grow = [&] {
        const size_t parent = get(items.size());
        items.push_back(&tree.AddItem(*items[parent], "item"));
        items.back()->id = static_cast<int32_t>(items.size()) - 1;
        model.parents.push_back(static_cast<int32_t>(parent));
        model.isOpen.push_back(false);
    };
    while (items.size() < 30) grow();
    tree.SelectTreeItem(&tree.GetRootItem());
    model.selected = 0;
    for (int32_t step = 0; step < 3000; ++step) {
        constexpr int32_t Keys[] = {MKeyUp,    MKeyDown, MKeyLeft, MKeyRight,     MKeyRight,
                                    MKeyEnter, MKeyHome, MKeyEnd,  MKeyNumpadAdd, MKeyNumpadSubtract};
        if (step % 100 == 0) grow();
        const std::vector<int32_t> rows = model.GetRows();
        const auto row = static_cast<int32_t>(get(rows.size()));
        const bool isSeen = tree.GetRowRect(row).bottom < 190 && tree.GetRowRect(row).top > 0;
        if (get(4) > 0 || !isSeen) {
            const int32_t key = Keys[get(std::size(Keys))];
            user.PressKey(key);
            model.Press(key);
        } else {
            system.AdvanceTime(600);
            const bool isDouble = get(2);
            user.Click(GetPlace(row), isDouble ? 2 : 1);
            model.selected = rows[static_cast<size_t>(row)];
            if (isDouble) model.SetOpen(model.selected, !model.isOpen[static_cast<size_t>(model.selected)]);
        }
        ASSERT_EQ(tree.GetSelectedItem(), items[static_cast<size_t>(model.selected)]) << step;
        std::vector<int32_t> shown;
        for (int32_t i = 0; i < tree.GetRowCount(); ++i) shown.push_back(tree.GetRow(i).id);
        ASSERT_EQ(shown, model.GetRows()) << step;
    }
}

TEST_F(MTreeControlTest, HasNoSelectedRowBelowAClosedItem) {
    tree.SetReorderable(true);
    auto item = std::make_unique<MTreeControlItem>("hidden");
    item->isSelected = true;
    tree.AddItem(tree.GetRootItem(), std::move(item), -1);
    EXPECT_EQ(tree.GetSelectedRow(), -1);
    user.HoldKeys(MModifierAlt);
    user.PressKey(MKeyUp);
    EXPECT_EQ(GetRows(), "root*");
}

TEST_F(MTreeControlTest, IsFilledWhenItIsOpened) {
    struct Filler : MEventTarget {
        void OnOpening(const MOnItemParams<MTreeControlItem>& params) {
            if (params.item->GetChildCount() > 0) return;
            auto& tree = *static_cast<MTreeControl*>(params.control);
            tree.AddItem(*params.item, "a").mayHaveChildren = true;
            tree.AddItem(*params.item, "b");
        }
    } filler;
    tree.OnItemOpening().Connect(&filler, &Filler::OnOpening);
    tree.GetRootItem().mayHaveChildren = true;
    user.Click(GetExpander(0, 0));
    EXPECT_EQ(GetRows(), "root;.a;.b");
    user.Click(GetExpander(2, 1));  // there is none
    user.Click(GetExpander(1, 1));
    EXPECT_EQ(GetRows(), "root;.a;..a;..b;.b*");
    // What is hidden is not selected any more, but what hides it.
    user.Click(GetPlace(2));
    Take();
    user.Type("-");
    user.Click(GetExpander(0, 0));
    EXPECT_EQ(GetRows(), "root*");
    EXPECT_EQ(Take(), "tree:change tree:click");
    // The way to an item opens, and without the root there is no row of it.
    tree.SelectTreeItem(&MTreeControl::GetChild(MTreeControl::GetChild(tree.GetRootItem(), 0), 1));
    EXPECT_EQ(GetRows(), "root;.a;..a;..b*;.b");
    tree.SetRootShown(false);
    EXPECT_EQ(GetRows(), ".a;..a;..b*;.b");
    EXPECT_EQ(tree.GetFocusedRow(), 2);
    tree.RemoveItem(MTreeControl::GetChild(tree.GetRootItem(), 0));
    EXPECT_EQ(GetRows(), ".b");
    EXPECT_EQ(tree.GetSelectedItem(), nullptr);
    tree.RemoveItemsBelow(tree.GetRootItem());
    EXPECT_EQ(GetRows(), "");
}

}  // namespace
