#pragma once

#include "foundation/base/MList.h"
#include "setup/MFrontEnd.h"
#include "setup/console/MTextDialogs.h"

/// A run without window and questions. Phases and progress go to standard output, errors to standard error;
/// docs/unattended.md tells the words, the output and the exit codes. No operation raises `MException`.
class MSilentFrontEnd final : public MFrontEnd {
public:
    /// `words` are those of the command line without `silent`. Relative paths among them begin at the current
    /// directory.
    explicit MSilentFrontEnd(const MList<MString>& words);

    [[nodiscard]] MUserDialogs& GetDialogs() override { return dialogs; }
    [[nodiscard]] MExitCode Install(MLargeResourceLibrary& definition) override;
    [[nodiscard]] MExitCode InstallUpdate(MLargeResourceLibrary& package) override;
    [[nodiscard]] MExitCode Update(const MString& directory) override;
    /// The only word is `uninstall`, which may be left out.
    [[nodiscard]] MExitCode Remove(const MString& directory) override;
    /// No words are known. An interruption from the keyboard ends the run after the part in hand, and what
    /// was fetched is kept.
    [[nodiscard]] MExitCode Download(const MDownloadDefinition& definition, const MString& program) override;
    [[nodiscard]] MExitCode GetFailureCode() const override { return MExitFailed; }
    [[nodiscard]] MExitCode GetDeclinedCode() const override { return MExitFailed; }

private:
    /// Runs the body of a mode. What it raises is told, and gives the code.
    template <class Body>
    [[nodiscard]] MExitCode Guard(Body body);

    MList<MString> words;
    MString startDirectory;
    MUnattendedDialogs dialogs{MRetryAnswer::Refuse};
};
