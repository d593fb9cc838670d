#pragma once

#include "foundation/xml/MXMLItem.h"
#include "ui/widgets/menus/MMenuBase.h"

#include <memory>
#include <optional>

/// A menu of items of a class, which derives from `MMenuItemBaseWithFeatures`.
template <class T>
class MMenuT : public MMenuBase {
public:
    using MMenuBase::MMenuBase;
    using MMenuBase::Open;

    /// The item stays where it is until the menu is cleared or ends.
    T& AddItem(const MString& text, int32_t id = 0, std::optional<MStdIcon> icon = std::nullopt) {
        items.Add(new T(text));
        T& item = *items[items.GetCount() - 1];
        item.id = id;
        item.icon = icon;
        return item;
    }
    void AddSeparator() { AddItem(T::Separator); }
    /// An item with a menu of its own, to which it gives the items.
    MMenuT& AddSubMenu(const MString& text, std::optional<MStdIcon> icon = std::nullopt) {
        auto menu = std::make_unique<MMenuT>();
        MMenuT& subMenu = *menu;
        AddItem(text, 0, icon).subMenu = std::move(menu);
        return subMenu;
    }
    void Clear() {
        Close();
        items.Clear();
    }

    [[nodiscard]] int32_t GetItemCount() const override { return items.GetCount(); }
    [[nodiscard]] T& GetItem(int32_t index) const { return *items[index]; }
    [[nodiscard]] T& GetItemFeatures(int32_t index) const override { return *items[index]; }
    /// The first one with a number, in a sub-menu too, or null.
    [[nodiscard]] T* FindItem(int32_t id) const {
        for (T* item : items) {
            if (item->id == id && !item->subMenu) return item;
            const auto* const subMenu = static_cast<MMenuT*>(item->subMenu.get());
            if (T* const found = subMenu ? subMenu->FindItem(id) : nullptr) return found;
        }
        return nullptr;
    }

    /// An item was chosen, here or in a sub-menu, and all menus are closed.
    [[nodiscard]] MEvent<MOnItemParams<T>>& OnItem() { return itemEvent; }

    /// The items "item", which may stand in "items"; those that have some themselves are sub-menus.
    void LoadFromXml(MXMLItem& item) override {
        LoadItems(item);
        MMenuBase::LoadFromXml(item);
    }
    /// As above, without anything about the menu itself.
    void LoadItems(MXMLItem& source) {
        for (MXMLItem* sub : source.GetSubItems()) {
            if (sub->GetName() == "items") LoadItems(*sub);
            if (sub->GetName() != "item") continue;
            T& item = AddItem(MString());
            item.LoadFromXml(*sub);
            if (!sub->FindSubItem("item") && !sub->FindSubItem("items")) continue;
            auto menu = std::make_unique<MMenuT>();
            menu->LoadItems(*sub);
            item.subMenu = std::move(menu);
        }
    }

protected:
    void RaiseItem(MMenuItemBaseWithFeatures& item) override {
        itemEvent.Fire({this, static_cast<T*>(&item)});
    }

private:
    MList<T, MListOwning> items;
    MEvent<MOnItemParams<T>> itemEvent;
};

class MMenuItem final : public MMenuItemBaseWithFeatures {
public:
    using MMenuItemBaseWithFeatures::MMenuItemBaseWithFeatures;
};

class MMenu final : public MMenuT<MMenuItem> {
public:
    using MMenuT<MMenuItem>::MMenuT;
};
