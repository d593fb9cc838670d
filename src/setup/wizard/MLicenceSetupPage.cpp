#include "setup/wizard/MLicenceSetupPage.h"

#include "foundation/text/MUnicode.h"
#include "foundation/xml/MEntities.h"
#include "setup/choices/MLicenceText.h"
#include "setup/wizard/MSetupWindow.h"
#include "streams/basic/MOutputFile.h"
#include "ui/dialogs/MFileDialog.h"
#include "ui/layout/MLayoutSide.h"
#include "ui/widgets/buttons/MCheckBox.h"
#include "ui/widgets/content/MStaticMultiLine.h"
#include "ui/widgets/edits/MMultiLineEdit.h"

#include <algorithm>
#include <string>
#include <vector>

MLicenceSetupPage::MLicenceSetupPage(MControl& parent, const MString& name, MXMLItem& element)
    : MSetupPage(parent, name) {
    AddHeader(
        MTranslate("Please read the following Licence Agreement. Use the scrollbar to view the rest of the "
                   "agreement."));
    findBar = new MFindBar(*this, "find");
    findBar->layoutRatio.y = 0;
    findBar->SetVisible(false);
    findBar->onStep = [this](int32_t step) { Step(step); };
    findBar->GetEdit().OnString().Connect(this, &MLicenceSetupPage::OnWanted);
    (new MLayoutTop(*this))->Add(*findBar);

    Text = new MMultiLineEdit(this, "licenceedit");
    Text->SetText(MReadLicence(*GetWindow().GetSession().Library->OpenItem(&element)));
    Text->SetReadOnly(true);
    // What was found, while the keyboard is in the search.
    Text->SetSelectionShown(true);
    SetClientControl(Text);
    // Wherever the keyboard is in the window.
    GetRoot().GetShortcuts().Connect(this, &MLicenceSetupPage::OnFindKey,
                                     {'F', MModifierControl, MShortcutPhase::Press});

    auto& bottom = *new MPlasticContainer(this, "agreement");
    LetWrap(bottom);
    (new MLayoutBottom(*this))->Add(bottom);
    const MString agreement = element.GetAttribute("agreetext", MTranslate("I agree to the licence terms."));
    AgreeBox = &AddBox(bottom, "licenceagree", MEntities::Escape(agreement));
    AgreeBox->OnChange().Connect(this, &MLicenceSetupPage::OnAgree);
    bottom.SetClientControl(AgreeBox);
    auto& save = *new MButton(&bottom, "licencesave");
    save.SetText(MTranslate("Save..."));
    save.layoutRatio = {0, 0};
    save.MControl::OnClick(Click::Left).Connect(this, &MLicenceSetupPage::OnSave);
    auto& right = *new MLayoutRight(bottom);
    right.space = 4;
    right.Add(save);
}

bool MLicenceSetupPage::IsNextEnabled() {
    return AgreeBox->IsOn();
}

MControl* MLicenceSetupPage::GetFirstControl() {
    return Text;
}

bool MLicenceSetupPage::PreviewEvent(MControl* target, const MSystemEvent& event) {
    if (event.type == MEventType::KeyDown && findBar->Holds(target)) {
        if (event.key == MKeyEnter) return Step(event.Has(MModifierShift) ? -1 : 1), true;
        if (event.key == MKeyEscape) return Step(0), true;
    }
    return MSetupPage::PreviewEvent(target, event);
}

void MLicenceSetupPage::OnFindKey(const MOnKeyboardShortcutParams&) {
    if (IsShown()) OpenFindBar();
}

void MLicenceSetupPage::OnSave(const MOnClickParams&) {
    MFileDialog dialog(MFileDialog::Mode::Save, "FileDialog", MTranslate("Save the licence agreement"));
    dialog.AddFilter(MTranslate("Text"), "*.txt");
    dialog.SetFileName(MTranslate("Licence.txt"));
    if (dialog.RunModal(&GetRoot()) != MModalValue::Ok) return;
    try {
        MOutputFile file(dialog.GetFilePath());
        const std::string bytes = MEncodeUTF8Exact(Text->GetText());
        file.Write(bytes.data(), static_cast<int32_t>(bytes.size()));
        file.Commit();
    } catch (const MException& exception) {
        GetWindow().GetDialogs().ShowError(exception.GetMessage());
    }
}

// ---- The search.

void MLicenceSetupPage::OpenFindBar() {
    findBar->SetVisible(true);
    GetRoot().UpdateLayout();
    findBar->GetEdit().SetFocus();
    findBar->GetEdit().SelectAll();
}

void MLicenceSetupPage::OnWanted(const MOnStringParams&) {
    Select(Text->GetSelection().start, 1);
}

void MLicenceSetupPage::Step(int32_t step) {
    if (step == 0) {
        findBar->SetVisible(false);
        GetRoot().UpdateLayout();
        return Text->SetFocus();
    }
    Select(Text->GetSelection().start + step, step);
}

void MLicenceSetupPage::Select(int32_t from, int32_t step) {
    const MString text = Text->GetText();
    const MString wanted = findBar->GetEdit().GetText();
    std::vector<int32_t> places;
    if (!wanted.IsEmpty())
        for (int32_t at = text.Find(wanted); at >= 0; at = text.Find(wanted, at + 1)) places.push_back(at);
    const auto count = static_cast<int32_t>(places.size());
    const auto at =
        step > 0 ? std::ranges::lower_bound(places, from) : std::ranges::upper_bound(places, from) - 1;
    const int32_t index = count == 0 ? -1 : (static_cast<int32_t>(at - places.begin()) + count) % count;
    findBar->ShowCount(count, index);
    if (index < 0) return;
    const int32_t start = places[static_cast<size_t>(index)];
    Text->SetSelection(start, start + wanted.GetLength());
}
