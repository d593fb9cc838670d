#include "setup/MSetupApplication.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"
#include "setup/MDataCheck.h"
#include "setup/MMD5Tool.h"
#include "setup/MSelfReplacement.h"

std::unique_ptr<MSetupApplication> MCreateModuleInstance(void* instance,
                                                         std::unique_ptr<MFrontEnd> frontEnd) {
    std::unique_ptr<MSetupApplication> application;
    MGuard("MCreateModuleInstance", [&] {
        application = std::make_unique<MSetupApplication>(std::move(frontEnd));
        MModule::SetInstance(application.get());
        application->SetInstanceHandle(instance);
    });
    return application;
}

int32_t MSetupApplication::Main() {
    if (IsFirstArgument("md5")) {
        MRunMD5Tool(Arguments, *Console, frontEnd->GetDialogs());
        return MExitDone;
    }
    const MString directory = MFile::GetDirectory(FilePath);
    MExitCode exitCode;
    try {
        MFile::SetCurrentPath(directory);
        Sfx = std::make_unique<MSfx>();
        if (!Sfx->IsOpen() && MFile::IsInstallation(directory))
            exitCode = RunInstalledCopy(directory);
        else
            exitCode = FindData(directory) ? RunData() : frontEnd->GetDeclinedCode();
    } catch (const MException&) {
        exitCode = frontEnd->GetFailureCode();
        frontEnd->GetDialogs().ShowError(
            MTranslate("There are no installer data availble. The installer is probably corrupt, please "
                       "download it again."));
    }
    Data = nullptr;
    Sfx.reset();
    return exitCode;
}

bool MSetupApplication::IsFirstArgument(const char* word) const {
    return !Arguments.IsEmpty() && Arguments[0] == word;
}

MExitCode MSetupApplication::RunInstalledCopy(const MString& directory) {
    MFile::SetCurrentPath(directory);
    if (IsFirstArgument("update")) return frontEnd->Update(directory);
    if (IsFirstArgument("updatesetup") || MFile::GetBaseName(FilePath) == "updatesetup") {
        MReplaceInstalledSetup(FilePath);
        return MExitDone;
    }
    return frontEnd->Remove(directory);
}

bool MSetupApplication::FindData(const MString& directory) {
    Data = Sfx.get();
    if (Sfx->IsOpen()) return true;
    const MString dataPath = MFile::Join(directory, "setup.dat");
    if (!MFile::IsFile(dataPath)) {
        Data = &DataMulti;
        return MCheckFileSet(MFile::Join(directory, "setup.multi"), DataMulti, frontEnd->GetDialogs());
    }
    if (!MCheckDataFile(dataPath, frontEnd->GetDialogs())) return false;
    MOpenDataFile(dataPath, DataFile);
    Data = &DataFile;
    return true;
}

MExitCode MSetupApplication::RunData() {
    try {
        Definition.Attach(Data);
        return Definition.FindSubItem("updateinformation") ? frontEnd->InstallUpdate(Definition)
                                                           : frontEnd->Install(Definition);
    } catch (const MException&) {
        // What is no resource library, or a broken one, may be the definition of a download.
        Data->Rewind();
    }
    return RunDownloader(*Data);
}

MExitCode MSetupApplication::RunDownloader(MStream& stream) {
    return frontEnd->Download(MDownloadDefinition(stream), FilePath);
}
