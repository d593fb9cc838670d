#pragma once

#include "ui/widgets/menus/MMenu.h"
#include "ui/widgets/menus/MMenuBarBase.h"

#include <memory>
#include <utility>

/// A menu bar with items of a class, which derives from `MMenuItemBaseWithFeatures`, in its menus.
template <class T>
class MMenuBarT : public MMenuBarBase {
public:
    using MMenuBarBase::MMenuBarBase;

    /// An item at the right end; gives its menu, which the bar owns.
    MMenuT<T>& AddMenu(const MString& text) {
        auto menu = std::make_unique<MMenuT<T>>();
        MMenuT<T>& added = *menu;
        added.OnItem().Connect(this, &MMenuBarT::OnMenuItem);
        AddBarItem(text, std::move(menu));
        return added;
    }
    [[nodiscard]] MMenuT<T>& GetMenu(int32_t index) const {
        return static_cast<MMenuT<T>&>(GetMenuBase(index));
    }
    /// An item was chosen in any of the menus.
    [[nodiscard]] MEvent<MOnItemParams<T>>& OnItem() { return itemEvent; }

    /// The items "item", which may stand in "items", each with those of its menu.
    void LoadFromXml(MXMLItem& item) override {
        LoadMenus(item);
        if (MXMLItem* const group = item.FindSubItem("items")) LoadMenus(*group);
        MMenuBarBase::LoadFromXml(item);
    }

private:
    void LoadMenus(MXMLItem& group) {
        for (MXMLItem* sub : group.GetSubItems()) {
            if (sub->GetName() != "item") continue;
            AddMenu(sub->GetAttribute("text", "")).LoadItems(*sub);
            SetItemEnabled(GetItemCount() - 1, sub->GetInt32Attribute("enabled", 1) != 0);
        }
    }
    void OnMenuItem(const MOnItemParams<T>& params) { itemEvent.Fire({this, params.item}); }

    MEvent<MOnItemParams<T>> itemEvent;
};

class MMenuBar final : public MMenuBarT<MMenuItem> {
public:
    using MMenuBarT<MMenuItem>::MMenuBarT;
};
