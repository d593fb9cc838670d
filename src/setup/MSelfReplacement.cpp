#include "setup/MSelfReplacement.h"

#include "foundation/base/MException.h"
#include "foundation/files/MInstallationNames.h"
#include "streams/basic/MStdFileStream.h"

namespace {

void CopyProgram(const MString& from, const MString& to) {
    MStdFileStream target;
    target.Open(to, MOpenWrite | MOpenCreate);
    MStdFileStream source;
    source.Open(from, MOpenRead);
    source.CopyAllTo(target);
    target.Close();
    MFile::MakeExecutable(to);
}

}  // namespace

void MReplaceInstalledSetup(const MString& executable) {
    constexpr int32_t Attempts = 10000;
    constexpr int32_t PauseMilliseconds = 1000;
    const MString target = MGetSetupPath(MFile::GetDirectory(executable));
    // Opening the target empties it: our own file must not be it.
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
