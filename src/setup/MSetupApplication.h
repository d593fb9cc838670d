#pragma once

#include "foundation/views/MUserDialogs.h"
#include "payload/MLargeResourceLibrary.h"
#include "payload/MSfx.h"
#include "streams/basic/MStdFileStream.h"
#include "streams/file_sets/MMultiFileStream.h"
#include "ui/control/MWindowsModule.h"

#include <memory>

/// The program: one executable that is installer, uninstaller, update manager, downloader or MD5 tool.
/// Which, is told by the first argument, by whether the executable carries a payload, and by the files
/// beside it. There is one instance, the process-wide module.
class MSetupApplication : public MWindowsModule {
public:
    int32_t Main() override;

private:
    [[nodiscard]] bool IsFirstArgument(const char* word) const;
    [[nodiscard]] int32_t RunByFiles(const MString& startDirectory);
    [[nodiscard]] int32_t RunInstalledCopy(const MString& directory);
    [[nodiscard]] bool FindData(const MString& directory);
    [[nodiscard]] int32_t RunData(const MString& startDirectory);
    [[nodiscard]] int32_t RunDefinition(const MString& startDirectory);
    [[nodiscard]] int32_t RunDownloader();
    /// Says that this build cannot do what was asked for.
    [[nodiscard]] int32_t RefuseMode(const char* sentence);

    bool isUnattended = false;
    std::unique_ptr<MUserDialogs> dialogs;

    MSfx* Sfx = nullptr;
    MStdFileStream DataFile;
    MMultiFileStream DataMulti;
    MStream* Data = nullptr;
    MLargeResourceLibrary Definition;
};

/// Makes the application the process-wide module; `instance` is the handle of the process or null.
/// The caller owns it. Null on failure.
[[nodiscard]] std::unique_ptr<MSetupApplication> MCreateModuleInstance(void* instance);
