#include "setup/MSelfReplacement.h"

#include "foundation/base/MException.h"
#include "foundation/files/MInstallationNames.h"
#include "streams/basic/MOutputFile.h"
#include "streams/basic/MStdFileStream.h"

namespace {

/// Whole or not at all: it is the one program that can remove the software.
void CopyProgram(const MString& from, const MString& to) {
    MOutputFile target(to);
    MStdFileStream source;
    source.Open(from, MOpenRead);
    source.CopyAllTo(target);
    target.CommitProgram();
}

}  // namespace

void MReplaceInstalledSetup(const MString& executable) {
    constexpr int32_t Attempts = 10000;
    constexpr int32_t PauseMilliseconds = 1000;
    const MString target = MGetSetupPath(MFile::GetDirectory(executable));
    // Our own file is what it shall be.
    if (target == executable) return;
    for (int32_t attempt = 0; attempt < Attempts; ++attempt) {
        try {
            CopyProgram(executable, target);
            return;
        } catch (const MException&) {
            MPlatform::Sleep(PauseMilliseconds);
        }
    }
}
