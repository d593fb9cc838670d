#include "setup/MDownloadMode.h"

#include "foundation/MFile.h"
#include "setup/MDownloadConsoleView.h"
#include "setup/MExitCode.h"
#include "setup/MRefusal.h"
#include "setup/MTextDialogs.h"
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

}  // namespace

int32_t MRunUnattendedDownload(const MDownloadDefinition& definition, const MString& program,
                               const MList<MString>& words) {
    MUnattendedDialogs dialogs(MRetryAnswer::Refuse);
    try {
        if (!words.IsEmpty())
            MRefuse("The word \"{0}\" cannot be used: a silent download knows no words.", words[0]);
        const MString target = GetTarget(program);
        MDownloadConsoleView console;
        console.SetText(definition.GetID() + MTranslate(" downloader"));
        if (MDownloader(definition, target, console).Run()) {
            TellWhatToDo(console, target);
            return MExitDone;
        }
        dialogs.ShowError(
            MTranslate("The download has been interrupted. Start it again to go on where it has ended."));
        return MExitFailed;
    } catch (const MRefusal& refusal) {
        dialogs.ShowError(refusal.GetMessage());
        return MExitRefused;
    } catch (const MException& exception) {
        dialogs.ShowError(exception.GetMessage());
        return MExitFailed;
    }
}
