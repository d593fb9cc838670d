#include "ui/widgets/tabs/MTabSet.h"

#include "foundation/base/MGuard.h"
#include "foundation/text/MStringFormatter.h"
#include "ui/control/MXmlLoader.h"
#include "ui/layout/MLayoutSide.h"
#include "ui/widgets/content/MHelpUsage.h"

#include <algorithm>

MTabSet::MTabSet(MControl* parent, const MString& name)
    : MControl(parent, name), strip(new MTabStrip(*this)) {
    SetControlType(MControlType::TabSet);
    Set(MControlFlag::TabStop, false);
    auto* const top = new MLayoutTop(*this);
    top->Attach(*strip);
    switchLayout = new MLayoutSwitch(*this);
    switchLayout->measureHidden = true;
    contextMenu.OnItem().Connect(this, &MTabSet::OnMenuItem);
    for (const int32_t key : {MKeyPageUp, MKeyPageDown})
        GetShortcuts().Connect(this, &MTabSet::OnPageKey, {key, MModifierControl, MShortcutPhase::Press});
}

MTabSet::~MTabSet() {
    // Controls come back before the pages end.
    for (Page& page : pages) page.popup.reset();
}

MPanel& MTabSet::AddTab(const MString& text, std::optional<MStdIcon> icon, int32_t size) {
    auto* const panel = new MPanel(this, MFormat("Page{0}", GetTabCount()));
    pages.push_back({panel, nullptr});
    switchLayout->Attach(*panel);
    strip->AddButton({text, icon, size});
    if (selected < 0) SelectTab(0);
    return *panel;
}

void MTabSet::SetTabText(int32_t index, const MString& text) {
    MTabStrip::Button button = strip->GetButton(index);
    button.text = text;
    strip->ChangeButton(index, button);
}

void MTabSet::SetTabEnabled(int32_t index, bool isEnabled) {
    MTabStrip::Button button = strip->GetButton(index);
    button.isEnabled = isEnabled;
    strip->ChangeButton(index, button);
}

void MTabSet::SelectTab(int32_t index) {
    if (index < 0 || index >= GetTabCount() || index == selected) return;
    selected = index;
    Actualise();
}

void MTabSet::Actualise() {
    if (selected < 0) return;
    const MControlRef self(this);
    MGuard("MTabSet::Actualise", [&] {
        switchLayout->SetActive(&GetPage(selected));
        if (!self) return;
        strip->ScrollToButton(selected);
        Invalidate();
    });
}

void MTabSet::ChooseTab(int32_t index) {
    if (index < 0 || index >= GetTabCount() || !strip->GetButton(index).isEnabled) return;
    if (IsInPopup(index)) ShowInPopup(index);
    if (index == selected) return;
    const MControlRef self(this);
    SelectTab(index);
    if (self) ExecuteOnChange();
}

bool MTabSet::IsInPopup(int32_t index) const {
    const auto& popup = pages[static_cast<size_t>(index)].popup;
    return popup && popup->IsOpen();
}

void MTabSet::ShowInPopup(int32_t index) {
    Page& page = pages[static_cast<size_t>(index)];
    if (!page.popup)
        page.popup = std::make_unique<MTabPopup>(MFormat("TabPopup{0}{1}", GetName(), index),
                                                 strip->GetButton(index).text, *page.panel);
    // As large as pages are here.
    page.popup->ShowPage(GetPage(selected).size);
}

void MTabSet::OpenContextMenu(const MRect& anchorOnScreen) {
    contextMenu.Clear();
    for (int32_t i = 0; i < GetTabCount(); ++i) {
        const MTabStrip::Button& button = strip->GetButton(i);
        MMenuItem& item = contextMenu.AddItem(button.text, i, button.icon);
        item.isEnabled = button.isEnabled;
        item.check = i == selected ? 1 : 0;
    }
    const MControlRef self(this);
    contextMenu.Open(*strip, anchorOnScreen);
    if (self) contextMenu.FocusItem(selected);
}

void MTabSet::OnMenuItem(const MOnItemParams<MMenuItem>& params) {
    ChooseTab(params.item->id);
}

void MTabSet::OnPageKey(const MOnKeyboardShortcutParams& params) {
    const int32_t step = params.key == MKeyPageUp ? -1 : 1;
    for (int32_t index = selected + step; index >= 0 && index < GetTabCount(); index += step)
        if (strip->GetButton(index).isEnabled) return ChooseTab(index);
}

void MTabSet::LoadTabs(MXMLItem& group) {
    for (MXMLItem* sub : group.GetSubItems()) {
        if (sub->GetName() != "item") continue;
        std::optional<MStdIcon> icon;
        if (sub->HasAttribute("icon")) icon = MValueEnum<MStdIcon>::FromName(sub->GetCachedAttribute());
        const int32_t size = std::clamp(sub->GetInt32Attribute("size", 0), 0, 10000);
        MXmlLoader::Get().Load(*sub, AddTab(sub->GetAttribute("text", ""), icon, size));
        SetTabEnabled(GetTabCount() - 1, sub->GetInt32Attribute("enabled", 1) != 0);
    }
}

void MTabSet::LoadFromXml(MXMLItem& item) {
    SetFitAllButtons(item.GetInt32Attribute("fitallbuttons", 0) != 0);
    LoadTabs(item);
    if (MXMLItem* const group = item.FindSubItem("items")) LoadTabs(*group);
    LoadValueState(item);
    MControl::LoadFromXml(item);
}

void MTabSet::SaveValueState(MXMLItem& item) {
    item.SetAttribute("selected", selected);
}

void MTabSet::LoadValueState(MXMLItem& item) {
    SelectTab(item.GetInt32Attribute("selected", selected));
}

void MTabSet::WriteHelpInfo(MXMLItem& item) {
    constexpr const char* Entries[] = {
        "<control>Left mouse button</control> selects a tab.",
        ("<control>Ctrl + Left mouse button or Right mouse button</control> displays the whole tab in a popup "
         "window. This comes handy when you want to have multiple tabs visible at the same time."),
        "<control>Left and right arrows</control> select neighboring tab.",
        "Click on one of the buttons on the border to scroll in the control and show currently invisible tabs."};
    MWriteUsage(item, "", Entries);
    MControl::WriteHelpInfo(item);
}
