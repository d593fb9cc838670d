#include "foundation/files/MFolderLock.h"

#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/module/MPlatform.h"

MFolderLock::MFolderLock(const MString& folder, const MString& holder, int32_t patienceMilliseconds,
                         const MString& fileName)
    : path(MFile::Join(folder, fileName)) {
    constexpr int32_t PauseMilliseconds = 100;
    for (int32_t waited = 0; Try(holder) == Attempt::Held; waited += PauseMilliseconds) {
        if (waited >= patienceMilliseconds) {
            const MString other = ReadHolder();
            MRaise(MExceptionGeneral,
                   "Another setup is at work in \"{0}\": {1}. Nothing has been changed; please wait until it "
                   "is done, and start again.",
                   folder, other.IsEmpty() ? MTranslate("an unknown one") : other);
        }
        MPlatform::Sleep(PauseMilliseconds);
    }
}

MFolderLock::~MFolderLock() {
    if (file != None) Release();
}
