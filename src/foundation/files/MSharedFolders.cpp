#include "foundation/files/MSharedFolders.h"

#include <mutex>
#include <utility>

namespace {

std::mutex lock;
MList<MString> known;
int32_t takenCount = 0;

}  // namespace

MList<MString> MTakeSharedFolders() {
    const std::lock_guard guard(lock);
    MList<MString> taken;
    for (; takenCount < known.GetCount(); ++takenCount) taken.Add(known[takenCount]);
    return taken;
}

void MNoteSharedFolder(const MString& path) {
    const std::lock_guard guard(lock);
    for (const MString& other : known)
        if (other.IsExactly(path)) return;
    known.Add(path);
}
