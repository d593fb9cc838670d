#include "setup/MRemovalMode.h"

#include "install/run/MUninstallRun.h"
#include "setup/MExitGuard.h"
#include "setup/console/MConsoleView.h"
#include "setup/console/MTextDialogs.h"

namespace {

MString ListLines(const char* heading, const MList<MString>& lines) {
    MString text = MTranslate(heading);
    for (const MString& line : lines) text.Append(MString("\n    ") + line);
    return text;
}

void CheckWords(const MList<MString>& words) {
    for (const MString& word : words)
        if (!(word == "uninstall"))
            MRefuse("The word \"{0}\" cannot be used: a silent removal knows no word but uninstall.", word);
}

std::unique_ptr<MUninstallRun> LoadState(const MString& directory, const MInstallViews& views) {
    try {
        return std::make_unique<MUninstallRun>(directory, views);
    } catch (const MException& exception) {
        MRaise(exception.GetCode(), "Sorry. The software definition file has not been found. {0}",
               exception.GetMessage());
    }
}

MExitCode Remove(const MString& directory, MUserDialogs& dialogs) {
    MConsoleView console;
    MInstallViews views;
    views.infoText = &console;
    views.totalBar = &console;
    views.dialogs = &dialogs;
    const std::unique_ptr<MUninstallRun> run = LoadState(directory, views);
    run->PerformUninstallation();

    const MList<MString> kept = run->GetKeptDirectories();
    if (!kept.IsEmpty())
        console.SetText(ListLines("These folders stay, since they hold something else:", kept));
    const MList<MString> leftovers = run->GetLeftovers();
    if (leftovers.IsEmpty()) return MExitDone;
    dialogs.ShowError(ListLines("These could not be removed:", leftovers));
    return MExitIncomplete;
}

}  // namespace

int32_t MRunUnattendedRemoval(const MString& directory, const MList<MString>& words) {
    MUnattendedDialogs dialogs(MRetryAnswer::Refuse);
    return MGuardExitCode(dialogs, [&] {
        CheckWords(words);
        return Remove(directory, dialogs);
    });
}
