#include "setup/wizard/MComponentSetupPage.h"

#include "setup/wizard/MChoiceText.h"
#include "setup/wizard/MSetupWindow.h"
#include "ui/layout/MLayoutClient.h"
#include "ui/layout/MLayoutSide.h"
#include "ui/widgets/buttons/MCheckBox.h"
#include "ui/widgets/content/MStaticMultiLine.h"
#include "ui/widgets/scrolling/MScroller.h"

MComponentSetupPage::MComponentSetupPage(MControl& parent, const MString& name)
    : MSetupPage(parent, name), rows(GetDefinition()) {
    AddHeader(MTranslate("Select components you want to install, then click Next."));
    List = new MListBoxT<MComponentListBoxItem>(this, "componentpanel");
    List->SetCheckBoxes(true);
    for (int32_t i = 0; i < rows.GetCount(); ++i) {
        MComponentRow& row = rows.GetRow(i);
        List->AddItem(MChoiceText(row.name, row.description)).row = &row;
    }
    List->SortItems();
    if (List->GetItemCount() > MaximumBoxes)
        SetClientControl(List);
    else
        AddBoxes();
}

void MComponentSetupPage::AddBoxes() {
    List->SetVisible(false);
    auto& view = *new MScroller(this, "view");
    view.SetControlType(MControlType::Empty);
    SetClientControl(&view);
    auto& column = *new MLayoutVertical(view.GetContainer());
    column.space = 8;
    for (int32_t i = 0; i < List->GetItemCount(); ++i) {
        auto& box = *new MCheckBox(&view.GetContainer(), MFormat("CheckBox{0}", i));
        box.Set(MControlFlag::Plastic);
        box.SetContent(std::make_unique<MContentSTML>(List->GetItem(i)->text));
        box.Set(MCheckBoxState::On);
        box.minClientSize.x = 400;
        box.layoutRatio.y = 0;
        column.Add(box);
        Boxes.Add(&box);
    }
    column.Add(*new MControlContainer(&view.GetContainer(), "Space"));
}

MControl* MComponentSetupPage::GetFirstControl() {
    return Boxes.IsEmpty() ? static_cast<MControl*>(List) : Boxes[0];
}

bool MComponentSetupPage::ShouldSkip(bool back) {
    MSetupSession& session = GetWindow().GetSession();
    if (!back) {
        rows.ApplyConfiguration(session.ConfigurationId);
        for (int32_t i = 0; i < List->GetItemCount(); ++i) {
            MComponentListBoxItem& item = *List->GetItem(i);
            item.check = item.row->checked ? 1 : 0;
            if (!Boxes.IsEmpty()) Boxes[i]->Set(item.row->checked ? MCheckBoxState::On : MCheckBoxState::Off);
        }
        List->Invalidate();
    }
    return !session.ShowComponents;
}

bool MComponentSetupPage::OnNext() {
    for (int32_t i = 0; i < List->GetItemCount(); ++i) {
        MComponentListBoxItem& item = *List->GetItem(i);
        item.row->checked = Boxes.IsEmpty() ? item.IsChecked() : Boxes[i]->IsOn();
    }
    rows.Store();
    return true;
}
