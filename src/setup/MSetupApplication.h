#pragma once

#include "payload/MLargeResourceLibrary.h"
#include "payload/MSfx.h"
#include "setup/MFrontEnd.h"
#include "streams/basic/MStdFileStream.h"
#include "streams/file_sets/MMultiFileStream.h"
#include "ui/control/windows/MWindowsModule.h"

#include <memory>

/// The program: one executable that is installer, uninstaller, update manager, downloader or MD5 tool.
/// Which, is told by the first argument, by whether the executable carries a payload, and by the files
/// beside it. There is one instance, the process-wide module.
class MSetupApplication : public MWindowsModule {
public:
    explicit MSetupApplication(std::unique_ptr<MFrontEnd> frontEnd) : frontEnd(std::move(frontEnd)) {}

    int32_t Main() override;

private:
    [[nodiscard]] bool IsFirstArgument(const char* word) const;
    [[nodiscard]] MExitCode RunInstalledCopy(const MString& directory);
    /// False if the user does not want to go on with damaged data.
    [[nodiscard]] bool FindData(const MString& directory);
    [[nodiscard]] MExitCode RunData();
    [[nodiscard]] MExitCode RunDownloader(MStream& stream);

    std::unique_ptr<MFrontEnd> frontEnd;

    std::unique_ptr<MSfx> Sfx;
    MStdFileStream DataFile;
    MMultiFileStream DataMulti;
    MStream* Data = nullptr;  ///< one of the three
    MLargeResourceLibrary Definition;
};

/// Makes the application the process-wide module; `instance` is the handle of the process or null.
/// The caller owns it. Null on failure.
[[nodiscard]] std::unique_ptr<MSetupApplication> MCreateModuleInstance(void* instance,
                                                                       std::unique_ptr<MFrontEnd> frontEnd);
