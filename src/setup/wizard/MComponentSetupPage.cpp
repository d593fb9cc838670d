#include "setup/wizard/MComponentSetupPage.h"

#include "foundation/text/MByteSizeText.h"
#include "setup/wizard/MChoiceText.h"
#include "setup/wizard/MSetupWindow.h"
#include "ui/layout/MLayoutClient.h"
#include "ui/layout/MLayoutSide.h"
#include "ui/widgets/buttons/MCheckBox.h"
#include "ui/widgets/content/MStaticMultiLine.h"
#include "ui/widgets/scrolling/MScroller.h"

MComponentSetupPage::MComponentSetupPage(MControl& parent, const MString& name)
    : MSetupPage(parent, name), rows(GetDefinition()), needs(GetDefinition()) {
    AddHeader(MTranslate("Select components you want to install, then click Next."));
    List = new MListBoxT<MComponentListBoxItem>(this, "componentpanel");
    List->SetCheckBoxes(true);
    for (int32_t i = 0; i < rows.GetCount(); ++i) {
        MComponentRow& row = rows.GetRow(i);
        const MString size = MByteSizeText(needs.GetBytes(row));
        const MString about = row.description.IsEmpty() ? size : row.description + " (" + size + ")";
        List->AddItem(MChoiceText(row.name, about)).row = &row;
    }
    List->SortItems();
    List->OnItemChecked().Connect(this, &MComponentSetupPage::OnItem);
    needed = new MStatic(this, "needed");
    needed->SetContentAlignment(MAlignRight);
    needed->layoutRatio.y = 0;
    needed->layoutBorder = {0, 4};
    (new MLayoutBottom(*this))->Add(*needed);
    if (List->GetItemCount() > MaximumBoxes)
        SetClientControl(List);
    else
        AddBoxes();
}

void MComponentSetupPage::AddBoxes() {
    List->SetVisible(false);
    MScroller& view = AddView();
    auto& column = *new MLayoutVertical(view.GetContainer());
    column.space = 8;
    for (int32_t i = 0; i < List->GetItemCount(); ++i) {
        const MComponentRow& row = *List->GetItem(i)->row;
        auto& line = *new MPlasticContainer(&view.GetContainer(), MFormat("row{0}", i));
        LetWrap(line);
        column.Add(line);
        MCheckBox& box = AddBox(line, MFormat("CheckBox{0}", i), MChoiceText(row.name, row.description));
        box.Set(MCheckBoxState::On);
        box.OnChange().Connect(this, &MComponentSetupPage::OnBox);
        line.SetClientControl(&box);
        Boxes.Add(&box);
        auto& size = *new MStatic(&line, MFormat("size{0}", i));
        size.SetText(MByteSizeText(needs.GetBytes(row)));
        // Beside the first line of the text; a single one stands in the middle.
        size.layoutRatio = {0, row.description.IsEmpty() ? 100 : 0};
        auto& right = *new MLayoutRight(line);
        right.space = 8;
        right.Add(size);
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
        ShowNeeded();
    }
    return !session.ShowComponents;
}

void MComponentSetupPage::ReadControls() {
    for (int32_t i = 0; i < List->GetItemCount(); ++i) {
        MComponentListBoxItem& item = *List->GetItem(i);
        item.row->checked = Boxes.IsEmpty() ? item.IsChecked() : Boxes[i]->IsOn();
    }
}

void MComponentSetupPage::ShowNeeded() {
    ReadControls();
    needed->SetText(MFormat(MTranslate("Needed: {0}"), MByteSizeText(needs.GetTickedBytes(rows))));
}

bool MComponentSetupPage::OnNext() {
    ReadControls();
    rows.Store();
    return true;
}
