#include "foundation/files/MSharedFolders.h"

#include <atomic>
#include <mutex>

namespace {

std::mutex lock;
/// Lives for ever: at the end of the process static objects delete files.
MList<MString>& known = *new MList<MString>;
int32_t takenCount = 0;
/// Asked before each file of a run.
std::atomic<bool> isAnyNew = false;

}  // namespace

MList<MString> MTakeSharedFolders() {
    MList<MString> taken;
    if (!isAnyNew.load(std::memory_order_acquire)) return taken;
    isAnyNew = false;
    const std::lock_guard guard(lock);
    for (; takenCount < known.GetCount(); ++takenCount) taken.Add(known[takenCount]);
    return taken;
}

void MNoteSharedFolder(const MString& path) {
    const std::lock_guard guard(lock);
    for (const MString& other : known)
        if (other.IsExactly(path)) return;
    known.Add(path);
    isAnyNew.store(true, std::memory_order_release);
}
