#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"
#include "install/engine/MInstallProcessorItem.h"

namespace {

bool HoldsSomething(const MString& directory) {
    bool holds = false;
    MGuard("MInstallProcessor", [&] { holds = !MFile::GetFileList(directory).IsEmpty(); });
    return holds;
}

MList<MString> GetExisting(const MList<MString>& paths) {
    MList<MString> existing;
    for (const MString& path : paths)
        if (MFile::Exists(path)) existing.Add(path);
    return existing;
}

}  // namespace

void MInstallProcessor::RemoveDirectory(const Item& item) {
    ShowRemovalProgress(item, "deleting directory {0} ({1} of {2})");
    Log("Deleting directory ", item.path);
    if (MFile::Exists(item.path)) TryRemovingDirectory(item.path);
}

void MInstallProcessor::RemoveFile(const Item& item) {
    ShowRemovalProgress(item, "deleting file {0} ({1} of {2})");
    ++itemIndex;
    if (item.rewritable) TryRemovingFile(item);
}

// A file that is missing is found out by its deletion: asking before would take an eighth of the time.
void MInstallProcessor::TryRemovingFile(const Item& item) {
    const bool isBundle = MFile::GetExtension(item.name) == "aaxplugin";
    try {
        isBundle ? MFile::DeleteTree(item.path) : MFile::Delete(item.path);
        Log("Deleting file ", item.path);
    } catch (const MException&) {
        if (!MFile::Exists(item.path)) return;
        Log("Deleting file ", item.path);
        ++failureCount;
        leftovers.Add(item.path);
    }
}

void MInstallProcessor::TryRemovingDirectory(const MString& path) {
    try {
        MFile::RemoveDirectory(path);
    } catch (const MException&) {
        ++failureCount;
        (HoldsSomething(path) ? keptDirectories : leftovers).Add(path);
    }
}

// Another part of the product may have succeeded where one has failed.
MList<MString> MInstallProcessor::GetLeftovers() const {
    return GetExisting(leftovers);
}

MList<MString> MInstallProcessor::GetKeptDirectories() const {
    return GetExisting(keptDirectories);
}

void MInstallProcessor::ShowRemovalProgress(const Item& item, const char* format) {
    if (item.options.uninstall)
        views.ShowTotalProgress(itemCount, itemIndex);
    else
        ShowItem(format, item.path);
}
