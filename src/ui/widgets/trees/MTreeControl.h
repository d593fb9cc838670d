#pragma once

#include "foundation/xml/MXMLItem.h"
#include "ui/widgets/trees/MTreeControlBase.h"

#include <memory>

/// A tree of items of a class, which derives from `MTreeItemBase`. The tree owns them.
template <class T>
class MTreeControlT : public MTreeControlBase {
public:
    using MTreeControlBase::MTreeControlBase;

    /// Below which all items are.
    [[nodiscard]] T& GetRootItem() { return rootItem; }
    /// In front of the parent's item `index`, at the end for -1.
    virtual T& AddItem(T& parent, std::unique_ptr<T> item, int32_t index) {
        T& added = *item;
        InsertItem(parent, item.release(), index);
        return added;
    }
    T& AddItem(T& parent, const MString& text, int32_t id = 0) {
        auto item = std::make_unique<T>(text);
        item->id = id;
        return AddItem(parent, std::move(item), -1);
    }
    /// With all below it; not the root.
    virtual void RemoveItem(T& item) { DeleteItem(item); }
    void RemoveItemsBelow(T& item) { DeleteItemsBelow(item); }
    [[nodiscard]] virtual T* GetItem(int32_t row) { return static_cast<T*>(&GetRow(row)); }
    [[nodiscard]] static T& GetChild(const T& item, int32_t index) {
        return static_cast<T&>(item.GetChildItem(index));
    }
    /// Null for the root.
    [[nodiscard]] static T* GetParentOf(const T& item) { return static_cast<T*>(item.GetParentItem()); }
    /// The first one that is selected, or null.
    [[nodiscard]] T* GetSelectedItem() {
        const int32_t row = GetSelectedRow();
        return row < 0 ? nullptr : GetItem(row);
    }

    /// As those of `MListBoxT`; `OnItemActivated` for items that have nothing to open.
    [[nodiscard]] MEvent<MOnItemParams<T>>& OnItem() { return itemEvent; }
    [[nodiscard]] MEvent<MOnItemParams<T>>& OnItemChecked() { return checkEvent; }
    [[nodiscard]] MEvent<MOnItemParams<T>>& OnItemActivated() { return activateEvent; }
    /// Before it is open; the time to add what is below it.
    [[nodiscard]] MEvent<MOnItemParams<T>>& OnItemOpening() { return openingEvent; }

    [[nodiscard]] T& GetRootBase() override { return rootItem; }

    /// The items "item", which may stand in "items", with those below them. With "showroot" the first one of the
    /// outermost is the root; without, they all are rows at the left.
    void LoadFromXml(MXMLItem& item) override {
        MTreeControlBase::LoadFromXml(item);
        MXMLItem* const group = item.FindSubItem("items");
        MXMLItem& source = group ? *group : item;
        MXMLItem* const first = source.FindSubItem("item");
        if (!first) return;
        const bool isRootGiven = item.GetInt32Attribute("showroot", 0) != 0;
        SetRootShown(isRootGiven);
        if (isRootGiven) rootItem.LoadFromXml(*first);
        LoadItems(rootItem, isRootGiven ? *first : source);
        StartAtSelected();
    }

protected:
    void OnSelected() override {
        const int32_t row = GetFocusedRow();
        const bool isSelected = row >= 0 && row < GetRowCount() && GetRow(row).isSelected;
        const MControlRef self(this);
        itemEvent.Fire({this, isSelected ? GetItem(row) : nullptr});
        if (self) ExecuteOnChange();
    }
    void OnChecked(int32_t row) override { checkEvent.Fire({this, GetItem(row)}); }
    bool OnActivated(int32_t row) override { return activateEvent.Fire({this, GetItem(row)}); }
    void OnOpening(MTreeItemBase& item) override { openingEvent.Fire({this, static_cast<T*>(&item)}); }

private:
    void LoadItems(T& parent, MXMLItem& group) {
        for (MXMLItem* sub : group.GetSubItems()) {
            if (sub->GetName() != "item") continue;
            auto item = std::make_unique<T>();
            item->LoadFromXml(*sub);
            LoadItems(AddItem(parent, std::move(item), -1), *sub);
        }
    }

    T rootItem;
    MEvent<MOnItemParams<T>> itemEvent;
    MEvent<MOnItemParams<T>> checkEvent;
    MEvent<MOnItemParams<T>> activateEvent;
    MEvent<MOnItemParams<T>> openingEvent;
};

class MTreeControlItem : public MTreeItemBase {
public:
    using MTreeItemBase::MTreeItemBase;
};

class MTreeControl : public MTreeControlT<MTreeControlItem> {
public:
    using MTreeControlT<MTreeControlItem>::MTreeControlT;
};
