#pragma once

#include "setup/wizard/MSetupPage.h"
#include "ui/widgets/scrolling/MFindBar.h"

class MCheckBox;
class MMultiLineEdit;

/// The agreement, which has to be accepted before the user can go on. It can be searched (Ctrl+F), copied and
/// saved.
class MLicenceSetupPage : public MSetupPage {
public:
    /// Reads the text of the item `element`. Raises what `MLargeResourceLibrary::OpenItem` and reading raise.
    MLicenceSetupPage(MControl& parent, const MString& name, MXMLItem& element);

    [[nodiscard]] bool IsNextEnabled() override;
    [[nodiscard]] MControl* GetFirstControl() override;
    bool PreviewEvent(MControl* target, const MSystemEvent& event) override;

private:
    void OnAgree(const MOnNotifyParams&) { UpdateButtons(); }
    void OnSave(const MOnClickParams& params);
    void OnWanted(const MOnStringParams& params);
    void OnFindKey(const MOnKeyboardShortcutParams& params);
    void OpenFindBar();
    void Step(int32_t step);
    /// Selects the next place from an index on, around the ends.
    void Select(int32_t from, int32_t step);

    // Children.
    MFindBar* findBar;
    MMultiLineEdit* Text;
    MCheckBox* AgreeBox;
};
