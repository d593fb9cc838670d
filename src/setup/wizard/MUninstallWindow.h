#pragma once

#include "install/run/MUninstallRun.h"
#include "setup/wizard/MProductWindow.h"
#include "setup/wizard/MWizardDialogs.h"
#include "ui/widgets/buttons/MButton.h"
#include "ui/widgets/buttons/MCheckBox.h"
#include "ui/widgets/edits/MMultiLineEdit.h"

#include <array>
#include <functional>

class MProgressBar;
class MProgressLine;

/// Asks whether the installation in a folder shall be removed, and why, offers to look for updates instead,
/// removes it and tells what has come of it. There is no way out of a removal but its end.
class MUninstallWindow : public MProductWindow {
public:
    static constexpr size_t ReasonCount = 7;

    /// `runUpdates` opens the update manager and returns when that is closed. The dialogs are not owned. What
    /// keeps the state from being read, or the user from removing, is told at once; `RunModal` then only
    /// returns `Ok`.
    MUninstallWindow(const MString& directory, MWizardDialogs& dialogs, std::function<void()> runUpdates);

    /// `Ok` if the installation was removed, or could never be, or the update manager has run in place of
    /// this window; `Cancel` if nothing was done.
    MModalValue RunModal(MControl* parent) override;
    [[nodiscard]] bool CanClose() override { return !isWorking; }
    void OnPrepared() override;

    /// Where what the user tells goes: the maker's own address unless another one is set.
    MString noteAddress;

private:
    using Handler = void (MUninstallWindow::*)(const MOnClickParams&);

    void Load(const MString& directory, const MInstallViews& views);
    void AddQuestion();
    void AddOptions();
    void AddFooter(bool hasUpdates);
    MButton& AddButton(MControl& buttons, MLayout& row, const char* text, Handler handler);
    void OnUninstall(const MOnClickParams& params);
    void OnUpdate(const MOnClickParams& params);
    void SubmitSurvey();
    void ShowResult();

    MWizardDialogs& dialogs;
    std::function<void()> runUpdates;
    std::unique_ptr<MUninstallRun> run;  ///< null if there is nothing to remove
    MString productName;
    bool isWorking = false;
    bool isUpdateWanted = false;

    // Children.
    MControlContainer* survey = nullptr;
    MControlContainer* footer = nullptr;
    MProgressLine* info = nullptr;
    MProgressBar* progress = nullptr;
    MMultiLineEdit* details = nullptr;
    MButton* uninstallButton = nullptr;
    MButton* updateButton = nullptr;  ///< null without updates
    MButton* cancelButton = nullptr;
    std::array<MCheckBox*, ReasonCount> options{};
};
