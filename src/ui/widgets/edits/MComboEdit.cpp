#include "ui/widgets/edits/MComboEdit.h"

#include "foundation/xml/MXMLItem.h"
#include "ui/geometry/MLength.h"
#include "ui/widgets/content/MHelpUsage.h"

#include <algorithm>

MComboEdit::MComboEdit(MControl* parent, const MString& name) : MEdit(parent, name) {
    Set(MControlFlag::UseOverlays, false);
    button.Set(MControlFlag::OverlayControl);
    button.Set(MControlFlag::AdaptSize, false);
    button.Set(MControlFlag::UseParentHelp);
    button.SetIcon(MStdIcon::DownTriangle);
    button.SetBackgroundShown(false);
    button.MControl::OnClick(Click::Left).Connect(this, &MComboEdit::OnButton);
    menu.OnItem().Connect(this, &MComboEdit::OnItem);
}

void MComboEdit::LoadFromXml(MXMLItem& item) {
    MList<MXMLItem, MListPointers> items;
    item.CollectSubItems("item", items);
    for (const MXMLItem* entry : items) AddItem(entry->GetAttribute("text", ""));
    MEdit::LoadFromXml(item);
}

void MComboEdit::AdjustRectangles(MRect&, MRect& newClientRect) {
    MStyle* const style = GetStyle();
    if (!style) return;
    const MRect area = newClientRect;
    newClientRect.right -=
        std::max(style->GetPartSize(*this, MStylePart::SwitcherButton).x, button.minimalSize.x);
    button.position = {newClientRect.right + 1, area.top};
    button.size = {area.right - newClientRect.right, MClampLength(area.GetHeight())};
}

int32_t MComboEdit::FindPresentItem() const {
    const MString text = GetText();
    int32_t index = menu.GetItemCount() - 1;
    while (index >= 0 && !menu.GetItem(index).text.IsExactly(text)) --index;
    return index;
}

void MComboEdit::ShowMenu() {
    const MPoint corner = GetScreenPoint({});
    const int32_t present = FindPresentItem();
    const MControlRef self(this);
    menu.minimalWidth = size.x;
    menu.Open(*this, MRect::FromSize(corner.x, corner.y, size.x, size.y));
    if (self && present >= 0) menu.FocusItem(present);
}

bool MComboEdit::PreviewEvent(MControl* target, const MSystemEvent& event) {
    const bool isArrow = event.key == MKeyUp || event.key == MKeyDown;
    const bool isSpace = event.key == MKeySpace && (target == &button || IsReadOnly());
    if (event.type != MEventType::KeyDown || (!isArrow && !isSpace))
        return MEdit::PreviewEvent(target, event);
    const MControlRef self(this);
    ShowMenu();
    if (self && menu.IsOpen() && FindPresentItem() < 0) menu.FocusFirstItem();
    return true;
}

void MComboEdit::OnButton(const MOnClickParams&) {
    ShowMenu();
}

void MComboEdit::OnItem(const MOnItemParams<MenuItem>& params) {
    const MString text = params.item->text;
    const MControlRef self(this);
    SetFocus();
    if (!self) return;
    SelectAll();
    if (IsReadOnly()) {
        SetText(text);
        RaiseChange();
    } else {
        Insert(text);
    }
    if (self) SelectAll();
}

void MComboEdit::WriteHelpInfo(MXMLItem& item) {
    MEdit::WriteHelpInfo(item);
    constexpr const char* Entries[] = {
        "<control>Up, Down or Space key</control> or a click on the button shows the menu."};
    MWriteUsage(item, "", Entries);
}
