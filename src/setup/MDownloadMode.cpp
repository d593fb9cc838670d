#include "setup/MDownloadMode.h"

#include "foundation/files/MFile.h"
#include "setup/MExitGuard.h"
#include "setup/console/MDownloadConsoleView.h"
#include "setup/console/MTextDialogs.h"
#include "update/MDownloader.h"

namespace {

/// A program without extension cannot share its name with a directory.
MString GetTarget(const MString& program) {
    const MString target = MFile::Join(MFile::GetDirectory(program), MFile::GetBaseName(program));
    return target.IsExactly(program) ? program + "-download" : target;
}

void TellWhatToDo(MTextView& console, const MString& target) {
    console.SetText(MTranslate("The software has successfully been downloaded."));
    const MString setup = MFindDownloadedSetup(target);
    console.SetText(setup.IsEmpty() ? target : setup);
}

MExitCode Download(const MDownloadDefinition& definition, const MString& target, MUserDialogs& dialogs) {
    MDownloadConsoleView console;
    console.SetText(definition.GetID() + MTranslate(" downloader"));
    if (MDownloader(definition, target, console).Run()) {
        TellWhatToDo(console, target);
        return MExitDone;
    }
    dialogs.ShowError(
        MTranslate("The download has been interrupted. Start it again to go on where it has ended."));
    return MExitFailed;
}

}  // namespace

int32_t MRunUnattendedDownload(const MDownloadDefinition& definition, const MString& program,
                               const MList<MString>& words) {
    MUnattendedDialogs dialogs(MRetryAnswer::Refuse);
    return MGuardExitCode(dialogs, [&] {
        if (!words.IsEmpty())
            MRefuse("The word \"{0}\" cannot be used: a silent download knows no words.", words[0]);
        return Download(definition, GetTarget(program), dialogs);
    });
}
