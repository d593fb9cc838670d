#include "setup/wizard/MDirectorySetupPage.h"

#include "foundation/files/MFile.h"
#include "foundation/text/MStringFormatter.h"
#include "setup/wizard/MSetupWindow.h"
#include "ui/dialogs/MDirectoryDialog.h"
#include "ui/layout/MLayoutGrid.h"
#include "ui/layout/MLayoutSide.h"
#include "ui/widgets/content/MStaticMultiLine.h"
#include "ui/widgets/edits/MEdit.h"
#include "ui/widgets/scrolling/MScroller.h"

MDirectorySetupPage::MDirectorySetupPage(MControl& parent, const MString& name)
    : MSetupPage(parent, name), choices(GetWindow().GetSession()) {
    AddHeader(MTranslate("Specify installation directories, then click Next."));
    auto& view = *new MScroller(this, "view");
    view.SetControlType(MControlType::Empty);
    SetClientControl(&view);
    auto& grid = *new MLayoutGrid(view.GetContainer(), 3);
    for (int32_t i = 0; i < choices.GetCount(); ++i)
        AddRow(view.GetContainer(), grid, *choices.GetRow(i).element);
}

void MDirectorySetupPage::AddRow(MControl& table, MLayoutGrid& grid, const MXMLItem& element) {
    const MString id = element.GetAttribute("id");
    const bool isShown = element.GetInt32Attribute("Hidden", 0) == 0;
    auto& label = *new MStatic(&table, "label" + id);
    label.SetText(element.GetAttribute("name"));
    label.layoutRatio = {0, 0};
    label.layoutPlacement = MAlignLeft;
    auto& edit = *new MEdit(&table);
    edit.minClientSize.x = 300;
    edit.layoutRatio = {100, 0};
    auto& button = *new MButton(&table, "browse" + id);
    button.SetText(MTranslate("Browse"));
    button.layoutRatio = {0, 0};
    button.MControl::OnClick(Click::Left).Connect(this, &MDirectorySetupPage::OnBrowse);
    for (MControl* control :
         {static_cast<MControl*>(&label), static_cast<MControl*>(&edit), static_cast<MControl*>(&button)}) {
        control->SetVisible(isShown);
        if (isShown) grid.Attach(*control);
    }
    Edits.Add(&edit);
    Buttons.Add(&button);
    shown.Add(MString());
    if (!isShown) return;
    auto& info = *new MStaticMultiLine(&table, "info" + id);
    info.SetText("<alpha value=178>" + element.GetValue());
    info.layoutRatio.y = 0;
    info.layoutSpaceAfter = 8;
    grid.Attach(info);
    grid.SetSpanX(info, 3, true);
}

bool MDirectorySetupPage::ShouldSkip(bool) {
    choices.LoadDefaults();
    for (int32_t i = 0; i < choices.GetCount(); ++i) {
        Edits[i]->SetText(choices.GetRow(i).path);
        shown[i] = Edits[i]->GetText();
    }
    return UpdateAvailability();
}

bool MDirectorySetupPage::UpdateAvailability() {
    const bool isNoneUsed = choices.UpdateAvailability();
    for (int32_t i = 0; i < choices.GetCount(); ++i) {
        const bool isUsed = choices.GetRow(i).element->GetInt32Attribute("Available", 0) != 0;
        Edits[i]->SetEnabled(isUsed);
        Buttons[i]->SetEnabled(isUsed);
    }
    return isNoneUsed;
}

MControl* MDirectorySetupPage::GetFirstControl() {
    for (MEdit* edit : Edits)
        if (edit->CanFocus()) return edit;
    return nullptr;
}

void MDirectorySetupPage::OnBrowse(const MOnClickParams& params) {
    for (int32_t i = 0; i < choices.GetCount(); ++i) {
        if (params.control != Buttons[i]) continue;
        const MString old = MFile::Normalize(Edits[i]->GetText());
        const MString last = MFile::GetFileName(old);
        MDirectoryDialog dialog("DirectoryDialog", MTranslate("Select directory"));
        dialog.SetPath(old);
        if (dialog.RunModal(&GetRoot()) != MModalValue::Ok) return;
        MString path = dialog.GetPath();
        // Who picks the folder above keeps the product's own one.
        if (!last.IsEmpty() && !(MFile::GetFileName(path) == last)) path = MFile::Join(path, last);
        return Edits[i]->SetText(path);
    }
}

bool MDirectorySetupPage::OnNext() {
    for (int32_t i = 0; i < choices.GetCount(); ++i) {
        const MString text = Edits[i]->GetText();
        if (!text.IsExactly(shown[i])) choices.GetRow(i).path = text;
    }
    choices.Store();
    choices.Remember();
    return true;
}
