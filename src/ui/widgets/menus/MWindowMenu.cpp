#include "ui/widgets/menus/MWindowMenu.h"

#include "foundation/xml/MXMLItem.h"
#include "ui/layout/MLayoutClient.h"
#include "ui/layout/MLayoutSide.h"
#include "ui/widgets/buttons/MButton.h"
#include "ui/widgets/menus/MPopupPlace.h"

namespace {

struct ButtonKind {
    MWindowMenu::Buttons which;
    const char* name;
    const char* text;
    MModalValue result;
};

constexpr ButtonKind ButtonKinds[] = {
    {MWindowMenu::OK, "okbutton", "OK", MModalValue::Ok},
    {MWindowMenu::Cancel, "cancelbutton", "Cancel", MModalValue::Cancel},
    {MWindowMenu::Close, "closebutton", "Close", MModalValue::Cancel},
};

constexpr int32_t Margin = 8;

}  // namespace

MWindowMenu::MWindowMenu(const MString& name, uint8_t buttons)
    : MControl(nullptr, name),
      container(new MContainer(this, "Container")),
      buttonRow(new MControlContainer(this, "Buttons")) {
    SetControlType(MControlType::Menu);
    container->SetControlType(MControlType::Empty);
    Set(MControlFlag::TabStop, false);
    Set(MControlFlag::CloseOnDeactivate);
    Set(MControlFlag::CloseOnEscape);
    Set(MControlFlag::MoveToScreenCenter, false);
    auto* const bottom = new MLayoutBottom(*this);
    bottom->Attach(*buttonRow);
    (new MLayoutHorizontal(*buttonRow))->space = Margin;
    container->layoutBorder = buttonRow->layoutBorder = {Margin, Margin};
    SetClientControl(container);
    SetButtons(buttons);
}

MButton* MWindowMenu::GetButton(Buttons which) const {
    for (const ButtonKind& kind : ButtonKinds)
        for (MControl* child : buttonRow->GetChildren())
            if (kind.which == which && child->GetName() == kind.name) return static_cast<MButton*>(child);
    return nullptr;
}

void MWindowMenu::SetButtons(uint8_t buttons) {
    for (const ButtonKind& kind : ButtonKinds) {
        MButton* const present = GetButton(kind.which);
        const bool isWanted = buttons & kind.which;
        if (isWanted == (present != nullptr)) continue;
        delete present;
        if (!isWanted) continue;
        auto* const button = new MButton(buttonRow, kind.name);
        button->SetText(MTranslate(kind.text));
        button->SetModalValue(kind.result);
        button->SetDefault(kind.which == OK);
        buttonRow->GetLayouts()[0]->Attach(*button);
    }
    buttonRow->SetVisible(buttons != None);
}

MModalValue MWindowMenu::RunAt(MControl& owner, const MRect& anchorOnScreen) {
    anchor = anchorOnScreen;
    if (!Is(MControlFlag::HasWindow)) CreateWindow(&owner);
    return RunModal(&owner);
}

void MWindowMenu::OnPrepared() {
    SetPosition(MPlacePopup(size, anchor, MPopupSide::Below));
}

void MWindowMenu::LoadFromXml(MXMLItem& item) {
    int32_t buttons = None;
    for (const ButtonKind& kind : ButtonKinds)
        if (item.GetInt32Attribute(kind.name, GetButton(kind.which) != nullptr) != 0) buttons |= kind.which;
    SetButtons(static_cast<uint8_t>(buttons));
    MControl::LoadFromXml(item);
}
