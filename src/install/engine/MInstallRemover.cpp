#include "install/engine/MInstallRemover.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"

namespace {

/// Another part of the product may have succeeded where one has failed.
MList<MString> GetExisting(const MList<MString>& paths) {
    MList<MString> existing;
    for (const MString& path : paths)
        if (MFile::Exists(path)) existing.Add(path);
    return existing;
}

}  // namespace

// A file that is missing is found out by its deletion: asking before would take an eighth of the time. The
// log is not behind for that, as its lines reach the disk by the directory.
void MInstallRemover::RemoveFile(const MString& path) {
    const bool isBundle = MFile::GetExtension(path) == "aaxplugin";
    try {
        isBundle ? MFile::DeleteTree(path) : MFile::Delete(path);
        log.Write({"Deleting file ", path});
    } catch (const MException&) {
        if (!MFile::Exists(path)) return;
        log.Write({"Deleting file ", path});
        ++failureCount;
        leftovers.Add(path);
    }
}

void MInstallRemover::RemoveDirectory(const MString& path) {
    try {
        MFile::RemoveDirectory(path);
    } catch (const MException&) {
        ++failureCount;
        // No installation makes links of folders: it is the user's own, and may lead to what others use.
        if (MFile::IsLink(path)) return;
        bool holdsSomething = false;
        MGuard("MInstallRemover", [&] { holdsSomething = !MFile::GetFileList(path).IsEmpty(); });
        (holdsSomething ? keptDirectories : leftovers).Add(path);
    }
}

MList<MString> MInstallRemover::GetLeftovers() const {
    return GetExisting(leftovers);
}

MList<MString> MInstallRemover::GetKeptDirectories() const {
    return GetExisting(keptDirectories);
}
