#pragma once

#include "foundation/xml/MXMLItem.h"
#include "ui/widgets/content/MContents.h"
#include "ui/widgets/lists/MListBoxBase.h"

#include <memory>
#include <vector>

/// A list of items of a class, which derives from `MListBoxItemBaseWithFeatures`. The list owns them. Costs of
/// adding do not depend on how many there are.
template <class T>
class MListBoxT : public MListBoxBase {
public:
    using MListBoxBase::MListBoxBase;

    /// In front of the item `index`, at the end for -1.
    virtual T& AddItem(std::unique_ptr<T> item, int32_t index) {
        T& added = *item;
        const int32_t row = index < 0 ? items.GetCount() : std::min(index, items.GetCount());
        items.Insert(row, item.release());
        OnItemAdded(added);
        OnRowsInserted(row, 1);
        return added;
    }
    T& AddItem(std::unique_ptr<T> item) { return AddItem(std::move(item), -1); }
    T& AddItem(const MString& text, int32_t id = 0) {
        auto item = std::make_unique<T>(text);
        item->id = id;
        return AddItem(std::move(item), -1);
    }
    virtual void RemoveItem(int32_t index) {
        OnItemRemoved(*items[index]);
        items.Remove(index);
        OnRowsRemoved(index, 1);
    }
    void RemoveAllItems() {
        SelectRow(-1);
        items.Clear();
        UpdateRows();
    }
    /// By their plain texts without regard to case; items of the same text stay as they stood.
    void SortItems() { SortRows(); }
    [[nodiscard]] virtual T* GetItem(int32_t index) const { return items[index]; }
    [[nodiscard]] int32_t GetItemCount() const { return items.GetCount(); }
    /// The first one that is selected, or null.
    [[nodiscard]] T* GetSelectedItem() {
        const int32_t row = GetSelectedRow();
        return row < 0 ? nullptr : items[row];
    }

    /// Other items are selected: tells the one that the keyboard is on, if it is one of them. `OnChange()` is
    /// raised as well.
    [[nodiscard]] MEvent<MOnItemParams<T>>& OnItem() { return itemEvent; }
    [[nodiscard]] MEvent<MOnItemParams<T>>& OnItemChecked() { return checkEvent; }
    /// Double clicked, or Enter.
    [[nodiscard]] MEvent<MOnItemParams<T>>& OnItemActivated() { return activateEvent; }

    [[nodiscard]] int32_t GetRowCount() override { return items.GetCount(); }
    [[nodiscard]] T& GetRow(int32_t row) override { return *items[row]; }

    /// The items "item", which may stand in "items".
    void LoadFromXml(MXMLItem& item) override {
        MListBoxBase::LoadFromXml(item);
        LoadItems(item);
        if (MXMLItem* const group = item.FindSubItem("items")) LoadItems(*group);
        StartAtSelected();
    }

protected:
    void OnSelected() override {
        const int32_t row = GetFocusedRow();
        const bool isSelected = row >= 0 && row < GetItemCount() && items[row]->isSelected;
        const MControlRef self(this);
        itemEvent.Fire({this, isSelected ? items[row] : nullptr});
        if (self) ExecuteOnChange();
    }
    void OnChecked(int32_t row) override { checkEvent.Fire({this, items[row]}); }
    bool OnActivated(int32_t row) override { return activateEvent.Fire({this, items[row]}); }
    void Reorder(const std::vector<int32_t>& order) override {
        const std::vector<T*> before(items.begin(), items.end());
        for (size_t row = 0; row < order.size(); ++row)
            items[static_cast<int32_t>(row)] = before[static_cast<size_t>(order[row])];
    }

private:
    void LoadItems(MXMLItem& group) {
        for (MXMLItem* sub : group.GetSubItems()) {
            if (sub->GetName() != "item") continue;
            auto item = std::make_unique<T>();
            item->LoadFromXml(*sub);
            AddItem(std::move(item), -1);
        }
    }

    MList<T, MListOwning> items;
    MEvent<MOnItemParams<T>> itemEvent;
    MEvent<MOnItemParams<T>> checkEvent;
    MEvent<MOnItemParams<T>> activateEvent;
};

class MListBoxItem : public MListBoxItemBaseWithFeatures {
public:
    using MListBoxItemBaseWithFeatures::MListBoxItemBaseWithFeatures;
};

class MListBox : public MListBoxT<MListBoxItem> {
public:
    using MListBoxT<MListBoxItem>::MListBoxT;
};
