#include "setup/console/MSilentFrontEnd.h"

#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "install/run/MUninstallRun.h"
#include "setup/console/MConsoleView.h"
#include "setup/console/MSilentUpdate.h"
#include "setup/console/MUnattendedRun.h"
#include "update/MDownloader.h"

namespace {

MString ListLines(const char* heading, const MList<MString>& lines) {
    MString text = MTranslate(heading);
    for (const MString& line : lines) text.Append(MString("\n    ") + line);
    return text;
}

std::unique_ptr<MUninstallRun> LoadState(const MString& directory, const MInstallViews& views) {
    try {
        return std::make_unique<MUninstallRun>(directory, views);
    } catch (const MRefusal&) {
        throw;
    } catch (const MException& exception) {
        MRaise(exception.GetCode(), "Sorry. The software definition file has not been found. {0}",
               exception.GetMessage());
    }
}

}  // namespace

MSilentFrontEnd::MSilentFrontEnd(const MList<MString>& words)
    : words(words), startDirectory(MFile::GetCurrentPath()) {}

template <class Body>
MExitCode MSilentFrontEnd::Guard(Body body) {
    try {
        return body();
    } catch (const MRefusal& refusal) {
        dialogs.ShowError(refusal.GetMessage());
        return MExitRefused;
    } catch (const MException& exception) {
        dialogs.ShowError(exception.GetMessage());
        return MExitFailed;
    }
}

MExitCode MSilentFrontEnd::Install(MLargeResourceLibrary& definition) {
    return Guard([&] {
        const MUnattendedOptions options(words, startDirectory);
        MUnattendedDialogs answers(options.locked);
        MConsoleView console;
        MInstallViews views;
        views.infoText = &console;
        views.fileText = &console;
        views.totalBar = &console;
        views.dialogs = &answers;
        MUnattendedRun run(definition, options, views);
        run.Validate();
        const MExitCode exitCode = Guard([&] {
            run.Perform();
            return run.GetUnmerged().IsEmpty() ? MExitDone : MExitIncomplete;
        });
        if (!run.GetUnmerged().IsEmpty()) dialogs.ShowError(MDescribeUnmerged(run.GetUnmerged()));
        // A run that was refused has shown no page.
        if (exitCode != MExitRefused) run.Conclude(exitCode != MExitFailed);
        return exitCode;
    });
}

MExitCode MSilentFrontEnd::InstallUpdate(MLargeResourceLibrary& package) {
    return Guard([&] {
        return MSilentUpdate(MSilentUpdate::Kind::Local, words, startDirectory).RunLocal(package, dialogs);
    });
}

MExitCode MSilentFrontEnd::Update(const MString& directory) {
    return Guard([&] {
        return MSilentUpdate(MSilentUpdate::Kind::FromServer, words, startDirectory).Run(directory, dialogs);
    });
}

MExitCode MSilentFrontEnd::Remove(const MString& directory) {
    return Guard([&] {
        for (const MString& word : words)
            if (!(word == "uninstall"))
                MRefuse("The word \"{0}\" cannot be used: a silent removal knows no word but uninstall.",
                        word);
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
    });
}

MExitCode MSilentFrontEnd::Download(const MDownloadDefinition& definition, const MString& program) {
    return Guard([&] {
        if (!words.IsEmpty())
            MRefuse("The word \"{0}\" cannot be used: a silent download knows no words.", words[0]);
        const MString target = MGetDownloadTarget(program);
        MDownloadConsoleView console;
        console.SetText(definition.GetID() + MTranslate(" downloader"));
        if (!MDownloader(definition, target, console).Run()) {
            dialogs.ShowError(
                MTranslate("The download has been interrupted. Start it again to go on where it has ended."));
            return MExitFailed;
        }
        console.SetText(MTranslate("The software has successfully been downloaded."));
        const MString setup = MFindDownloadedSetup(target);
        console.SetText(setup.IsEmpty() ? target : setup);
        return MExitDone;
    });
}
