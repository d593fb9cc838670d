#include "setup/MSetupApplication.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"
#include "setup/MDataCheck.h"
#include "setup/MDownloadMode.h"
#include "setup/MExitCode.h"
#include "setup/MMD5Tool.h"
#include "setup/MRemovalMode.h"
#include "setup/MSelfReplacement.h"
#include "setup/console/MTextDialogs.h"
#include "setup/console/MUnattendedMode.h"

std::unique_ptr<MSetupApplication> MCreateModuleInstance(void* instance) {
    std::unique_ptr<MSetupApplication> application;
    MGuard("MCreateModuleInstance", [&] {
        application = std::make_unique<MSetupApplication>();
        MModule::SetInstance(application.get());
        application->SetInstanceHandle(instance);
    });
    return application;
}

int32_t MSetupApplication::Main() {
    isUnattended = MUnattendedOptions::IsRequested(Arguments);
    if (isUnattended) {
        Arguments = MUnattendedOptions::WithoutRequest(Arguments);
        dialogs = std::make_unique<MUnattendedDialogs>(MRetryAnswer::Refuse);
    } else {
        dialogs = std::make_unique<MTerminalDialogs>();
    }
    if (IsFirstArgument("md5")) {
        MRunMD5Tool(Arguments, Console, *dialogs);
        return MExitDone;
    }
    int32_t exitCode;
    try {
        exitCode = RunByFiles(MFile::GetCurrentPath());
    } catch (const MException&) {
        exitCode = isUnattended ? MExitFailed : MExitDone;
        dialogs->ShowError(
            MTranslate("There are no installer data availble. The installer is probably corrupt, please "
                       "download it again."));
    }
    Sfx = nullptr;
    return exitCode;
}

bool MSetupApplication::IsFirstArgument(const char* word) const {
    return !Arguments.IsEmpty() && Arguments[0] == word;
}

int32_t MSetupApplication::RunByFiles(const MString& startDirectory) {
    const MString directory = MFile::GetDirectory(FilePath);
    MFile::SetCurrentPath(directory);
    MSfx sfx;
    Sfx = &sfx;
    if (!sfx.IsOpen() && MFile::IsInstallation(directory)) return RunInstalledCopy(directory);
    if (!FindData(directory)) return isUnattended ? MExitFailed : MExitDeclined;
    return RunData(startDirectory);
}

int32_t MSetupApplication::RunInstalledCopy(const MString& directory) {
    MFile::SetCurrentPath(directory);
    if (IsFirstArgument("update")) return RefuseMode("This build has no update manager.");
    if (IsFirstArgument("updatesetup") || MFile::GetBaseName(FilePath) == "updatesetup") {
        MReplaceInstalledSetup(FilePath);
        return MExitDone;
    }
    if (isUnattended) return MRunUnattendedRemoval(directory, Arguments);
    return RefuseMode("This build has no window for removing. To remove the software, add the word: silent");
}

bool MSetupApplication::FindData(const MString& directory) {
    if (Sfx->IsOpen()) {
        Data = Sfx;
        return true;
    }
    const MString dataPath = MFile::Join(directory, "setup.dat");
    if (!MFile::IsFile(dataPath)) {
        if (!MCheckFileSet(MFile::Join(directory, "setup.multi"), DataMulti, *dialogs)) return false;
        Data = &DataMulti;
        return true;
    }
    if (!MCheckDataFile(dataPath, *dialogs)) return false;
    MOpenDataFile(dataPath, DataFile);
    Data = &DataFile;
    return true;
}

int32_t MSetupApplication::RunData(const MString& startDirectory) {
    try {
        Definition.Attach(Data);
        return RunDefinition(startDirectory);
    } catch (const MException&) {
        // What is no resource library, or a broken one, may be the definition of a download.
        Data->Rewind();
    }
    return RunDownloader();
}

int32_t MSetupApplication::RunDefinition(const MString& startDirectory) {
    if (Definition.FindSubItem("updateinformation"))
        return RefuseMode("This build cannot install update packages.");
    if (isUnattended) return MRunUnattended(Definition, Arguments, startDirectory);
    return RefuseMode("This build has no wizard window. To install, add the words: silent accept-licence");
}

int32_t MSetupApplication::RunDownloader() {
    const MDownloadDefinition download(*Data);
    if (isUnattended) return MRunUnattendedDownload(download, FilePath, Arguments);
    return RefuseMode("This build has no window for downloading. To download, add the word: silent");
}

int32_t MSetupApplication::RefuseMode(const char* sentence) {
    dialogs->ShowError(sentence);
    return MExitFailed;
}
