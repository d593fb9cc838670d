#include "setup/console/MUnattendedMode.h"

#include "setup/MExitGuard.h"
#include "setup/console/MConsoleView.h"
#include "setup/console/MTextDialogs.h"
#include "setup/console/MUnattendedRun.h"

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

}  // namespace

int32_t MRunUnattended(MLargeResourceLibrary& definition, const MList<MString>& words,
                       const MString& startDirectory) {
    MTerminalDialogs dialogs;
    return MGuardExitCode(dialogs, [&] {
        InstallUnattended(definition, MUnattendedOptions(words, startDirectory));
        return MExitDone;
    });
}
