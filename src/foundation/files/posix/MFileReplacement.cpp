#include "foundation/files/MFileReplacement.h"

#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/files/posix/MNativePath.h"
#include "foundation/module/MPlatform.h"

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace {

bool Sync(const MString& path) {
    const int file = open(MNativePath(path).c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) return false;
    const bool isDone = fsync(file) == 0;
    close(file);
    return isDone;
}

}  // namespace

void MSyncFile(const MString& path) {
    if (!Sync(path))
        MRaise(MExceptionStreamError, "Error writing to file \"{0}\". Probably disk full.", path);
}

void MReplaceFile(const MString& from, const MString& to) {
    if (std::rename(MNativePath(from).c_str(), MNativePath(to).c_str()) != 0)
        MRaise(MExceptionGeneral, "Could not rename file \"{0}\" to \"{1}\". {2}", from, to,
               MSystemErrorText());
    // The file is in its place; a directory that cannot be synced loses at most the new name.
    (void)Sync(MFile::GetDirectory(to));
}
