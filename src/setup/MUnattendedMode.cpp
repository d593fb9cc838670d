#include "setup/MUnattendedMode.h"

#include "setup/MConsoleView.h"
#include "setup/MExitCode.h"
#include "setup/MRefusal.h"
#include "setup/MTextDialogs.h"
#include "setup/MUnattendedRun.h"

namespace {

void InstallUnattended(MLargeResourceLibrary& definition, const MUnattendedOptions& options) {
    MUnattendedDialogs dialogs(options.Locked);
    MConsoleView console;
    MInstallViews views;
    views.infoText = &console;
    views.fileText = &console;
    views.totalBar = &console;
    views.dialogs = &dialogs;
    MUnattendedRun run(definition, options, views);
    run.Validate();
    run.Perform();
}

int32_t Fail(const MException& exception, MExitCode exitCode) {
    MTerminalDialogs().ShowError(exception.GetMessage());
    return exitCode;
}

}  // namespace

int32_t MRunUnattended(MLargeResourceLibrary& definition, const MList<MString>& words,
                       const MString& startDirectory) {
    try {
        InstallUnattended(definition, MUnattendedOptions(words, startDirectory));
        return MExitDone;
    } catch (const MRefusal& refusal) {
        return Fail(refusal, MExitRefused);
    } catch (const MException& exception) {
        return Fail(exception, MExitFailed);
    }
}
