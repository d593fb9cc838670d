#pragma once

#include "install/run/MInstallRun.h"
#include "setup/choices/MPageWalk.h"
#include "setup/choices/MUpdateOffer.h"
#include "setup/wizard/MProductWindow.h"
#include "setup/wizard/MWizardDialogs.h"

class MLayoutSwitch;
class MProcessingSetupPage;
class MSetupPage;
class MTimeLine;

/// The wizard: one window that holds a page for each thing that is to be read or decided about a product, and
/// shows one at a time. It is made in one go from the definition of an installation.
///
/// The box that closes the window does what Exit does.
class MSetupWindow : public MProductWindow, private MPageWalkView {
public:
    /// Asks about older versions and removes them, makes the pages, and goes to the first one. The definition
    /// and the dialogs are not owned. Raises what makes of a definition none: "Could not find required
    /// attribute ({0})." (0) and its like, and what opening the licence raises.
    MSetupWindow(MLargeResourceLibrary& definition, MWizardDialogs& dialogs);
    ~MSetupWindow() override;

    [[nodiscard]] MXMLItem& GetDefinition() const { return session.GetDefinition(); }
    [[nodiscard]] MSetupSession& GetSession() { return session; }
    [[nodiscard]] const MInstallRun& GetRun() const;
    [[nodiscard]] MWizardDialogs& GetDialogs() { return dialogs; }
    [[nodiscard]] MPageWalk& GetWalk() { return walk; }
    [[nodiscard]] MString ExpandMacros(const MString& text) const {
        return session.Macros.ExpandMacros(text);
    }
    [[nodiscard]] const MUpdateOffer& GetUpdateOffer() const { return updateOffer; }
    [[nodiscard]] const MString& GetInstalledExecutable() const { return session.InstalledExecutable; }

    /// `Ok` for a walk that has come to its end, `Cancel` for one that was left.
    MModalValue RunModal(MControl* parent) override;
    void OnPrepared() override;
    [[nodiscard]] bool CanClose() override;
    void AdjustRectangles(MRect& newWindowRect, MRect& newClientRect) override;

private:
    void RemoveOlderVersions();
    void AddBand();
    void AddLeftPicture();
    void AddButtons();
    void AddPages();
    /// Makes a page below the others; one of the chain unless it stands beside it.
    template <class Page, class... Arguments>
    Page& AddPage(bool isInChain, Arguments&&... arguments);
    void FocusFirst();
    void OnButton(const MOnClickParams& params);

    // The walk.
    void ShowPage(MWalkPage& page) override;
    void ShowButtons(const MWalkButtons& buttons) override;
    void Repaint() override;
    [[nodiscard]] bool ConfirmExit(MWalkPage& page) override;
    void ShowError(const MString& text) override { dialogs.ShowError(text); }
    void EndWalk(MModalValue result) override;

    MWizardDialogs& dialogs;
    MSetupSession session;
    MUpdateOffer updateOffer;
    MPageWalk walk{*this};
    MModalValue ended = MModalValue::None;

    // Children.
    MControlContainer* pages = nullptr;
    MLayoutSwitch* pageSwitch = nullptr;
    MProcessingSetupPage* processing = nullptr;
    MTimeLine* timeLine = nullptr;
    MButton* PreviousButton = nullptr;
    MButton* NextButton = nullptr;
    MButton* ExitButton = nullptr;
};
