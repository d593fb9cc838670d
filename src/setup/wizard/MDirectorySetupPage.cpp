#include "setup/wizard/MDirectorySetupPage.h"

#include "foundation/files/MFile.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/xml/MEntities.h"
#include "setup/wizard/MChoiceText.h"
#include "setup/wizard/MSetupWindow.h"
#include "ui/dialogs/MDirectoryDialog.h"
#include "ui/layout/MLayoutGrid.h"
#include "ui/layout/MLayoutSide.h"
#include "ui/stml/MSTMLPlainText.h"
#include "ui/widgets/content/MStaticMultiLine.h"
#include "ui/widgets/edits/MEdit.h"
#include "ui/widgets/scrolling/MScroller.h"

#include <memory>

namespace {

constexpr int32_t WidestLabel = 160;  ///< at 100 percent; the end of a longer one is an ellipsis

bool IsFine(const MDirectorySpace& space, const MFolderFacts& facts) {
    return space.isSufficient && facts.fault.IsEmpty();
}

/// What is to be said of a folder: figures, or what is wrong.
MString GetFactsText(const MDirectorySpace& space, const MFolderFacts& facts) {
    const MString text = MEntities::Escape(facts.fault.IsEmpty() ? space.GetText() : facts.fault);
    return IsFine(space, facts) ? MQuietText(text) : "<cred>" + text + "</cred>";
}

}  // namespace

MDirectorySetupPage::MDirectorySetupPage(MControl& parent, const MString& name)
    : MSetupPage(parent, name), choices(GetWindow().GetSession()), needs(GetDefinition()) {
    AddHeader(MTranslate("Specify installation directories, then click Next."));
    hiddenInfo = new MStaticMultiLine(this, "hiddeninfo");
    LetWrap(*hiddenInfo);
    (new MLayoutBottom(*this))->Add(*hiddenInfo);
    MScroller& view = AddView();
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
    label.maximalSize.x = WidestLabel;
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
    edit.OnString().Connect(this, &MDirectorySetupPage::OnPath);
    if (!isShown) return infos.Add(nullptr);
    auto& info = *new MStaticMultiLine(&table, "info" + id);
    info.SetText(MQuietText(element.GetValue()));
    LetWrap(info);
    info.layoutBorder = {0, 4};
    grid.Attach(info);
    grid.SetSpanX(info, 3, true);
    infos.Add(&info);
}

bool MDirectorySetupPage::ShouldSkip(bool) {
    choices.LoadDefaults();
    for (int32_t i = 0; i < choices.GetCount(); ++i) {
        Edits[i]->SetText(choices.GetRow(i).path);
        shown[i] = Edits[i]->GetText();
    }
    const bool isNoneUsed = UpdateAvailability();
    LookAtFolders();
    return isNoneUsed;
}

void MDirectorySetupPage::OnTimer() {
    StopTimer();
    LookAtFolders();
}

void MDirectorySetupPage::LookAtFolders() {
    MList<MString> paths;
    auto facts = std::make_shared<MList<MDirectoryFacts>>();
    for (int32_t i = 0; i < choices.GetCount(); ++i) {
        const MXMLItem& element = *choices.GetRow(i).element;
        if (element.GetInt32Attribute("Available", 0) == 0) continue;
        paths.Add(MFile::Normalize(Edits[i]->GetText()));
        facts->Add({element.GetAttribute("id"), {}});
    }
    looking.Begin(
        [paths, facts] {
            for (int32_t i = 0; i < paths.GetCount(); ++i) (*facts)[i].facts = MFindFolderFacts(paths[i]);
        },
        [this, facts] { ShowFacts(*facts); });
}

void MDirectorySetupPage::ShowFacts(const MList<MDirectoryFacts>& facts) {
    const MList<MDirectorySpace> spaces = needs.Compare(facts);
    MString hidden;
    int32_t next = 0;
    problems = MString();
    for (int32_t i = 0; i < choices.GetCount(); ++i) {
        const MXMLItem& element = *choices.GetRow(i).element;
        MString text = MQuietText(element.GetValue());
        if (element.GetInt32Attribute("Available", 0) != 0) {
            const MString told = GetFactsText(spaces[next], facts[next].facts);
            text += " " + told;
            if (!IsFine(spaces[next], facts[next].facts)) {
                const MString problem = MEntities::Escape(Edits[i]->GetText()) + ": " + told;
                if (!infos[i]) hidden += problem + "<p>";
                problems += MSTMLPlainText::Of(problem) + "\n";
            }
            ++next;
        }
        if (infos[i]) infos[i]->SetText(text);
    }
    hiddenInfo->SetText(hidden);
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
        Edits[i]->SetText(path);
        return LookAtFolders();
    }
}

bool MDirectorySetupPage::OnNext() {
    // What was found may not hold any more, or not matter.
    if (!problems.IsEmpty() &&
        !GetWindow().GetDialogs().AskYesNo(problems + "\n" + MTranslate("Do you want to continue anyway?")))
        return false;
    for (int32_t i = 0; i < choices.GetCount(); ++i) {
        const MString text = Edits[i]->GetText();
        if (!text.IsExactly(shown[i])) choices.GetRow(i).path = text;
    }
    choices.Store();
    choices.Remember();
    return true;
}
