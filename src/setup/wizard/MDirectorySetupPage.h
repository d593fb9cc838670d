#pragma once

#include "setup/choices/MDirectoryChoices.h"
#include "setup/wizard/MSetupPage.h"

class MButton;
class MEdit;
class MLayoutGrid;

/// Where the parts of the product go: a row for each directory, with what is proposed for it. A directory that
/// no chosen part uses is greyed.
class MDirectorySetupPage : public MSetupPage {
public:
    MDirectorySetupPage(MControl& parent, const MString& name);

    /// Proposes again, in either direction; skips the page where no directory is used.
    [[nodiscard]] bool ShouldSkip(bool back) override;
    bool OnNext() override;
    [[nodiscard]] MControl* GetFirstControl() override;
    /// Returns whether no directory is used.
    [[nodiscard]] virtual bool UpdateAvailability();

private:
    void AddRow(MControl& table, MLayoutGrid& grid, const MXMLItem& element);
    void OnBrowse(const MOnClickParams& params);

    MDirectoryChoices choices;
    MList<MEdit, MListPointers> Edits;      ///< by row of the choices
    MList<MButton, MListPointers> Buttons;  ///< likewise
    /// What the entries have shown of the proposals: as long as they show it, the proposals stand.
    MList<MString> shown;
};
