#pragma once

#include "ui/widgets/buttons/MButton.h"
#include "ui/widgets/edits/MEdit.h"
#include "ui/widgets/menus/MMenu.h"

/// An edit with a menu of texts, which fill it. One that is read-only gets its text from the menu alone; Space
/// shows the menu there and on the button, where it is not typed.
class MComboEdit : public MEdit {
public:
    class MenuItem final : public MMenuItemBaseWithFeatures {
    public:
        using MMenuItemBaseWithFeatures::MMenuItemBaseWithFeatures;
    };

    explicit MComboEdit(MControl* parent = nullptr, const MString& name = MString());

    MenuItem& AddItem(const MString& text) { return menu.AddItem(text); }
    void ClearItems() { menu.Clear(); }
    [[nodiscard]] MMenuT<MenuItem>& GetMenu() { return menu; }
    /// The item that the text is, if any, is where the keyboard works. Nothing happens without items.
    void ShowMenu();

    /// As `MEdit`, and the items "item", which may stand in "items", each with its "text".
    void LoadFromXml(MXMLItem& item) override;
    void AdjustRectangles(MRect& newWindowRect, MRect& newClientRect) override;
    bool PreviewEvent(MControl* target, const MSystemEvent& event) override;
    void WriteHelpInfo(MXMLItem& item) override;

private:
    /// That of the text, or -1.
    [[nodiscard]] int32_t FindPresentItem() const;
    void OnButton(const MOnClickParams& params);
    void OnItem(const MOnItemParams<MenuItem>& params);

    MButton button{this, "Button"};
    MMenuT<MenuItem> menu;
};
