#include "ui/widgets/lists/MListBox.h"
#include "tests/ui/widgets/WidgetFixture.h"
#include "ui/widgets/lists/MSTMLListBoxItem.h"

#include <random>
#include <set>

namespace {

/// Rows of heights between 10 and 60; tells how many were asked for.
class UnevenList final : public MListBox {
public:
    using MListBox::MListBox;
    ~UnevenList() noexcept override = default;
    int32_t GetItemHeight(int32_t row, int32_t) override {
        ++asked;
        return 10 + GetItem(row)->id * 7919 % 51;
    }
    void PaintItem(MDrawer& drawer, int32_t row, const MRect& rect, uint8_t state) override {
        ++painted;
        MListBox::PaintItem(drawer, row, rect, state);
    }
    int32_t asked = 0;
    int32_t painted = 0;
};

class MListBoxTest : public WidgetTest {
protected:
    ~MListBoxTest() noexcept override = default;

    /// Fills the root, whose client area is 298 by 198, with a list of items "0", "1", and so on.
    template <class List = MListBox>
    List& Show(int32_t count) {
        auto* const list = new List(&root, "list");
        for (int32_t i = 0; i < count; ++i) list->AddItem(MNumberToText(i), i);
        root.SetClientControl(list);
        Listen(*list);
        Open(root);
        list->SetFocus();
        return *list;
    }
    MPoint GetPlace(MListBoxBase& list, int32_t row) {
        const MRect rect = list.GetRowRect(row).Intersected(list.GetViewRect());
        return list.GetScreenPoint({rect.left + rect.GetWidth() / 2, (rect.top + rect.bottom) / 2});
    }
    std::string GetOrder(MListBox& list) {
        std::string order;
        for (int32_t i = 0; i < list.GetItemCount(); ++i)
            order += Text(list.GetItem(i)->text) + (list.GetItem(i)->isSelected ? "* " : " ");
        return order;
    }
};

/// What the user sees of a list of 30 rows, of which every seventh is disabled.
struct Model {
    std::set<int32_t> selected;
    int32_t focus = -1;
    int32_t anchor = -1;

    static constexpr int32_t Count = 30;
    static bool IsSelectable(int32_t row) { return row % 7 != 3; }

    void Click(int32_t row, MKeyModifiers keys) {
        if (!IsSelectable(row)) return;
        if (keys & MModifierControl) {
            if (selected.erase(row) == 0) selected.insert(row);
            focus = anchor = row;
        } else {
            GoTo(row, keys);
        }
    }
    void GoTo(int32_t row, MKeyModifiers keys) {
        focus = row;
        if (keys & MModifierControl) return;
        if (!(keys & MModifierShift)) anchor = row;
        if (anchor < 0) anchor = row;
        selected.clear();
        for (int32_t i = std::min(anchor, row); i <= std::max(anchor, row); ++i)
            if (IsSelectable(i)) selected.insert(i);
    }
    void Press(int32_t key, MKeyModifiers keys) {
        const int32_t step = key == MKeyUp || key == MKeyEnd ? -1 : 1;
        int32_t row = key == MKeyHome ? -1 : key == MKeyEnd ? Count : focus;
        if (row < 0 && key == MKeyUp) row = Count;
        for (row += step; row >= 0 && row < Count && !IsSelectable(row);) row += step;
        if (row >= 0 && row < Count) GoTo(row, keys);
    }
};

TEST_F(MListBoxTest, SelectsAsItsModel) {
    MListBox& list = Show(Model::Count);
    list.SetMultiSelect(true);
    for (int32_t i = 0; i < Model::Count; ++i) list.GetItem(i)->isEnabled = Model::IsSelectable(i);
    Model model;
    std::mt19937 random(20261122);
    for (int32_t step = 0; step < 3000; ++step) {
        constexpr MKeyModifiers Held[] = {MModifierNone, MModifierShift, MModifierControl};
        constexpr int32_t Keys[] = {MKeyUp, MKeyDown, MKeyUp, MKeyDown, MKeyHome, MKeyEnd};
        const MKeyModifiers keys = Held[random() % 3];
        user.HoldKeys(keys);
        if (random() % 2) {
            const int32_t row = static_cast<int32_t>(random()) & 31;
            if (row >= Model::Count || !list.GetRowRect(row).Intersected(list.GetViewRect()).GetHeight())
                continue;
            system.AdvanceTime(600);
            user.Click(GetPlace(list, row));
            model.Click(row, keys);
        } else {
            const int32_t key = Keys[random() % 6];
            user.PressKey(key);
            model.Press(key, keys);
            const MRect focused = list.GetRowRect(model.focus);
            EXPECT_EQ(focused.Intersected(list.GetViewRect()), focused);
        }
        std::set<int32_t> selected;
        for (const int32_t row : list.GetSelectedRows()) selected.insert(row);
        ASSERT_EQ(selected, model.selected) << step;
        ASSERT_EQ(list.GetFocusedRow(), model.focus) << step;
    }
}

TEST_F(MListBoxTest, HasOneSelectedItemUnlessToldOtherwise) {
    MListBox& list = Show(5);
    user.HoldKeys(MModifierShift);
    user.Click(GetPlace(list, 1));
    user.Click(GetPlace(list, 3));
    EXPECT_EQ(GetOrder(list), "0 1 2 3* 4 ");
    EXPECT_EQ(Take(), "list:change list:click list:change list:click");
    // Again tells nobody; without the item nothing is selected, and the keyboard goes on from its place.
    user.HoldKeys(MModifierNone);
    user.PressKey(MKeyEnd);
    user.PressKey(MKeyEnd);
    EXPECT_EQ(Take(), "list:change");
    list.RemoveItem(4);
    EXPECT_EQ(list.GetSelectedItem(), nullptr);
    user.PressKey(MKeyUp);
    EXPECT_EQ(GetOrder(list), "0 1 2* 3 ");
    // A turn of the wheel is a key of an arrow.
    user.TurnWheel(120);
    EXPECT_EQ(GetOrder(list), "0 1* 2 3 ");
}

TEST_F(MListBoxTest, ChecksBySpaceAndMouse) {
    MListBox& list = Show(5);
    list.SetMultiSelect(true);
    list.SetCheckBoxes(true);
    const auto getChecks = [&] {
        std::string checks;
        for (int32_t i = 0; i < 5; ++i) checks += list.GetItem(i)->IsChecked() ? '1' : '0';
        return checks;
    };
    const MPoint box = list.GetScreenPoint({10, list.GetRowRect(1).top + 10});
    user.Click(box, 2);
    EXPECT_EQ(getChecks(), "00000");
    user.Click(box);
    EXPECT_EQ(getChecks(), "01000");
    EXPECT_EQ(list.GetSelectedRow(), -1);
    // All selected ones get what the one with the keyboard gets.
    list.SelectRow(0);
    user.HoldKeys(MModifierShift);
    user.PressKey(MKeyDown);
    user.PressKey(MKeyDown);
    user.HoldKeys(MModifierNone);
    user.PressKey(MKeySpace, u' ');
    EXPECT_EQ(getChecks(), "11100");
    user.PressKey(MKeySpace, u' ');
    EXPECT_EQ(getChecks(), "00000");
}

TEST_F(MListBoxTest, MovesItemsByDragAndKeys) {
    MListBox& list = Show(6);
    list.SetMultiSelect(true);
    list.SetReorderable(true);
    const auto drag = [&](int32_t from, int32_t to, int32_t below) {
        user.MoveMouse(GetPlace(list, from));
        user.PressButton();
        user.MoveMouse(GetPlace(list, to) + MPoint{0, below});
    };
    list.SelectRow(1);
    list.SetRowSelected(3, true);
    drag(3, 4, 5);
    user.ReleaseButton();
    EXPECT_EQ(GetOrder(list), "0 2 4 1* 3* 5 ");
    drag(4, 0, -5);
    user.PressKey(MKeyEscape);
    user.ReleaseButton();
    EXPECT_EQ(GetOrder(list), "0 2 4 1* 3* 5 ");
    drag(3, 0, -5);
    user.ReleaseButton();
    EXPECT_EQ(GetOrder(list), "1* 3* 0 2 4 5 ");
    // A press that is not moved selects one of several alone.
    system.AdvanceTime(600);
    user.Click(GetPlace(list, 1));
    EXPECT_EQ(GetOrder(list), "1 3* 0 2 4 5 ");
    user.HoldKeys(MModifierAlt);
    for (int32_t i = 0; i < 9; ++i) user.PressKey(MKeyDown);
    user.PressKey(MKeyUp);
    EXPECT_EQ(GetOrder(list), "1 0 2 4 3* 5 ");
    list.SortItems();
    EXPECT_EQ(GetOrder(list), "0 1 2 3* 4 5 ");
    EXPECT_EQ(list.GetFocusedRow(), 3);
}

TEST_F(MListBoxTest, KeepsWhatIsSeenInItsPlace) {
    auto& list = Show<UnevenList>(3000);
    std::mt19937 random(7);
    const auto get = [&](uint32_t count) { return static_cast<int32_t>(random() % count); };
    for (int32_t round = 0; round < 300; ++round) {
        list.ScrollTo(500 + get(20000));
        const int32_t row = list.FindRowAt({20, 20 + get(150)});
        const int32_t top = list.GetRowRect(row).top;
        // Rows above that were never seen are measured now.
        const int32_t delta = get(400) - 200;
        const MListBoxItem* const item = list.GetItem(row);
        list.ScrollTo(list.GetScrollPlace() + delta);
        EXPECT_EQ(list.GetRowRect(row).top, top - delta);
        // What comes and goes above is not seen.
        const int32_t other = get(static_cast<uint32_t>(list.FindRowAt({20, 1}) - 1));
        if (round % 2) {
            list.RemoveItem(other);
            ASSERT_EQ(list.GetItem(row - 1), item);
            EXPECT_EQ(list.GetRowRect(row - 1).top, top - delta);
        } else {
            list.AddItem(std::make_unique<MListBoxItem>("New"), other);
            EXPECT_EQ(list.GetRowRect(row + 1).top, top - delta);
        }
        // Neighbours touch.
        root.RedrawNow();
        for (int32_t i = list.FindRowAt({20, 1}); list.GetRowRect(i).top < 180; ++i)
            ASSERT_EQ(list.GetRowRect(i).bottom + 1, list.GetRowRect(i + 1).top);
    }
    for (int32_t round = 0; round < 100; ++round) {
        const int32_t row = get(2900);
        list.ScrollToRow(row);
        EXPECT_EQ(list.GetRowRect(row).Intersected(list.GetViewRect()), list.GetRowRect(row));
    }
    list.ScrollTo(1 << 28);
    EXPECT_EQ(list.GetRowRect(list.GetItemCount() - 1).bottom, list.GetViewRect().bottom);
}

TEST_F(MListBoxTest, LooksAtTheRowsThatAreSeenAlone) {
    auto& list = Show<UnevenList>(100000);
    root.RedrawNow();
    EXPECT_LT(list.asked, 50);
    for (int32_t i = 0; i < 100; ++i) {
        list.ScrollTo(list.GetScrollPlace() + 20000);
        list.painted = 0;
        list.asked = 0;
        root.RedrawNow();
        EXPECT_LT(list.painted + list.asked, 60);
    }
    // Another row with the keyboard repaints two.
    list.SelectRow(list.FindRowAt({20, 100}));
    root.RedrawNow();
    list.painted = 0;
    user.PressKey(MKeyUp);
    root.RedrawNow();
    EXPECT_EQ(list.painted, 2);
}

TEST_F(MListBoxTest, ShowsWhatWasSelectedBeforeItWasShown) {
    auto* const list = new MListBox(&root, "list");
    list->SelectRow(2);
    EXPECT_EQ(list->GetSelectedRow(), -1);
    for (int32_t i = 0; i < 100; ++i) list->AddItem(MNumberToText(i), i);
    root.SetClientControl(list);
    list->SelectRow(70);
    list->AddItem(std::make_unique<MListBoxItem>("first"), 0);
    Open(root);
    EXPECT_EQ(list->GetRowRect(71).Intersected(list->GetViewRect()), list->GetRowRect(71));
}

TEST_F(MListBoxTest, FillsColumnsOneAfterTheOther) {
    MListBox& list = Show(10);
    MXMLItem item("listbox");
    item.SetAttribute("columns", 3);
    item.SetAttribute("columns0", 40);
    item.SetAttribute("columns1", 0);
    item.SetAttribute("row0", 0);
    item.SetAttribute("row1", 50);
    list.LoadFromXml(item);
    root.RedrawNow();
    // Four lines, of which the second is 50 high; 40 pixels and two halves of the rest.
    EXPECT_EQ(list.GetRowRect(5), (MRect::FromSize(41, list.GetRowRect(0).bottom + 1, 128, 50)));
    EXPECT_EQ(list.FindRowAt({250, list.GetRowRect(1).top}), 9);
    EXPECT_EQ(list.FindRowAt({250, list.GetRowRect(2).top}), -1);
    list.SelectRow(1);
    for (const auto& [key, row] : {std::pair{MKeyRight, 5}, {MKeyDown, 6}, {MKeyRight, 6}, {MKeyLeft, 2}}) {
        user.PressKey(key);
        EXPECT_EQ(list.GetSelectedRow(), row);
    }
}

TEST_F(MListBoxTest, WrapsRichTextAndFindsItByItsLetters) {
    MListBox& list = Show(1);
    const MString words = "<b>Violin</b> of wood that sounds far and wide and needs several lines in a list";
    list.AddItem(std::make_unique<MSTMLListBoxItem>(words));
    list.AddItem(std::make_unique<MSTMLListBoxItem>(words, MStdIcon::OK));
    root.RedrawNow();
    const int32_t plain = list.GetRowRect(0).GetHeight();
    EXPECT_GT(list.GetRowRect(1).GetHeight(), plain);
    const int32_t before = list.GetRowRect(1).GetHeight();
    root.SetSize({150, 200});
    root.RedrawNow();
    EXPECT_GT(list.GetRowRect(1).GetHeight(), before);
    user.Type("vio");
    EXPECT_EQ(list.GetSelectedRow(), 1);
    user.Type("l");
    EXPECT_EQ(list.GetSelectedRow(), 1);
    system.AdvanceTime(2000);
    user.Type("vv");
    EXPECT_EQ(list.GetSelectedRow(), 1);
}

}  // namespace
