#pragma once

#include "install/run/MInstallRun.h"
#include "setup/wizard/MSetupPage.h"
#include "ui/control/windows/MTimer.h"

#include <memory>

class MProgressBar;
class MProgressLine;

/// The installing: two lines that tell what is going on, and two bars. There is no way out of it but its end.
///
/// All of it happens in the thread of the windows, from when the page is on the screen.
class MProcessingSetupPage : public MSetupPage, private MTimer {
public:
    MProcessingSetupPage(MControl& parent, const MString& name);

    /// Never; creates the directories. Raises what `MInstallRun::Enter` raises.
    [[nodiscard]] bool ShouldSkip(bool back) override;
    void OnShown() override;
    [[nodiscard]] bool IsNextEnabled() override { return false; }
    [[nodiscard]] bool IsPreviousEnabled() override { return false; }
    [[nodiscard]] bool IsExitVisible() override { return false; }

    [[nodiscard]] const MInstallRun& GetRun() const { return *run; }

private:
    void OnTimer() override;
    void Perform();

    // Children.
    MProgressLine* infoText;
    MProgressLine* fileText;
    MProgressBar* totalBar;
    MProgressBar* fileBar;

    std::unique_ptr<MInstallRun> run;
};
