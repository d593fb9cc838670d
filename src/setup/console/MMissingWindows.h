#pragma once

#include "setup/MFrontEnd.h"
#include "setup/console/MTextDialogs.h"

/// Stands where the windows will: asks on the terminal, and says of each run mode in one line that this build
/// has no window for it, and which words do without one.
class MMissingWindows final : public MFrontEnd {
public:
    [[nodiscard]] MUserDialogs& GetDialogs() override { return dialogs; }
    [[nodiscard]] MExitCode Install(MLargeResourceLibrary&) override {
        return Refuse("This build has no wizard window. To install, add the words: silent accept-licence");
    }
    [[nodiscard]] MExitCode InstallUpdate(MLargeResourceLibrary&) override {
        return Refuse("This build cannot install update packages.");
    }
    [[nodiscard]] MExitCode Update(const MString&) override {
        return Refuse("This build has no update manager.");
    }
    [[nodiscard]] MExitCode Remove(const MString&) override {
        return Refuse("This build has no window for removing. To remove the software, add the word: silent");
    }
    [[nodiscard]] MExitCode Download(const MDownloadDefinition&, const MString&) override {
        return Refuse("This build has no window for downloading. To download, add the word: silent");
    }
    [[nodiscard]] MExitCode GetFailureCode() const override { return MExitDone; }
    [[nodiscard]] MExitCode GetDeclinedCode() const override { return MExitDeclined; }

private:
    MExitCode Refuse(const char* sentence) {
        dialogs.ShowError(sentence);
        return MExitFailed;
    }

    MTerminalDialogs dialogs;
};
