#pragma once

#include "setup/MFrontEnd.h"
#include "setup/console/MTextDialogs.h"
#include "setup/wizard/MWizardDialogs.h"
#include "ui/control/windows/MWindows.h"

#include <memory>

/// Meets the user through windows, which are opened when the first one is needed. Where they cannot be, it
/// says so in one line, with the words that do without, and tools ask on the terminal.
class MWizardFrontEnd final : public MFrontEnd {
public:
    [[nodiscard]] MUserDialogs& GetDialogs() override;
    [[nodiscard]] MExitCode Install(MLargeResourceLibrary& definition) override;
    [[nodiscard]] MExitCode InstallUpdate(MLargeResourceLibrary& package) override;
    [[nodiscard]] MExitCode Update(const MString& directory) override;
    [[nodiscard]] MExitCode Remove(const MString& directory) override;
    [[nodiscard]] MExitCode Download(const MDownloadDefinition& definition, const MString& program) override;
    [[nodiscard]] MExitCode GetFailureCode() const override { return MExitDone; }
    [[nodiscard]] MExitCode GetDeclinedCode() const override { return MExitDeclined; }

private:
    /// Whether there are windows.
    [[nodiscard]] bool OpenWindows();
    [[nodiscard]] MExitCode RefuseWithoutWindows(const char* advice);

    std::unique_ptr<MWindows> windows;  ///< null where somebody else has made them
    MString missing;                    ///< why there are none
    MTerminalDialogs terminal;
    MWizardDialogs dialogs;
};
