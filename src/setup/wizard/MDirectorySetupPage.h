#pragma once

#include "setup/choices/MDirectoryChoices.h"
#include "setup/choices/MSpaceNeeds.h"
#include "setup/wizard/MSetupPage.h"
#include "ui/control/windows/MTimer.h"
#include "ui/widgets/files/MAwaitedTask.h"

class MButton;
class MEdit;
class MLayoutGrid;
class MStaticMultiLine;

/// Where the parts of the product go: a row for each directory, with what is proposed for it. A directory
/// that no chosen part uses is greyed. Below each row stands what the directory needs and what its volume
/// has, and what keeps it from being written; whoever goes on in spite of that is asked.
class MDirectorySetupPage : public MSetupPage, private MTimer {
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
    void OnPath(const MOnStringParams&) {
        problems = MString();
        StartTimer(TypingPause);
    }
    void OnTimer() override;
    /// Asks the disk about all folders, and shows what it says when it says it.
    void LookAtFolders();
    void ShowFacts(const MList<MDirectoryFacts>& facts);

    static constexpr int32_t TypingPause = 250;  ///< in milliseconds

    MDirectoryChoices choices;
    MList<MEdit, MListPointers> Edits;      ///< by row of the choices
    MList<MButton, MListPointers> Buttons;  ///< likewise
    /// What the entries have shown of the proposals: as long as they show it, the proposals stand.
    MList<MString> shown;
    MSpaceNeeds needs;
    MList<MStaticMultiLine, MListPointers> infos;  ///< by row of the choices; null for a hidden one
    MStaticMultiLine* hiddenInfo;                  ///< of hidden directories
    MString problems;  ///< what is wrong with the folders, a line each, as far as it is known
    MAwaitedTask looking;
};
