#include "builder/downloads/MDownloadSetOutput.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"

#include <algorithm>

namespace {

MString GetUnfinishedName(const MString& id) {
    return id + ".unfinished";
}

}  // namespace

MDownloadSetOutput::MDownloadSetOutput(const MString& directory, const MString& id)
    : directory(directory), unfinished(GetUnfinishedPath(directory, id)) {
    for (MString path = directory; !MFile::Exists(path); path = MFile::GetDirectory(path)) made.Add(path);
    if (MFile::Exists(unfinished)) MFile::DeleteTree(unfinished);
    MFile::CreatePath(unfinished);
}

MDownloadSetOutput::~MDownloadSetOutput() {
    if (!isCommitted) TakeBack();
}

MString MDownloadSetOutput::GetPath(const MString& name) const {
    return MFile::Join(unfinished, name);
}

void MDownloadSetOutput::Commit() {
    for (const MFileListEntry& entry : MFile::GetFileList(unfinished)) {
        const MString place = MFile::Join(directory, entry.name);
        MFile::Rename(GetPath(entry.name), place);
        placed.Add(place);
    }
    MFile::RemoveDirectory(unfinished);
    isCommitted = true;
}

void MDownloadSetOutput::TakeBack() const {
    for (const MString& path : placed) MGuard("MDownloadSetOutput", [&] { MFile::DeleteTree(path); });
    MGuard("MDownloadSetOutput", [this] { MFile::DeleteTree(unfinished); });
    for (const MString& path : made) MGuard("MDownloadSetOutput", [&] { MFile::RemoveDirectory(path); });
}

bool MDownloadSetOutput::IsFree(const MString& directory, const MString& id) {
    if (!MFile::Exists(directory)) return true;
    if (!MFile::IsDirectory(directory)) return false;
    const MList<MFileListEntry> entries = MFile::GetFileList(directory);
    return std::all_of(entries.begin(), entries.end(), [&](const MFileListEntry& entry) {
        return entry.name.IsExactly(GetUnfinishedName(id));
    });
}

MString MDownloadSetOutput::GetUnfinishedPath(const MString& directory, const MString& id) {
    return MFile::Join(directory, GetUnfinishedName(id));
}
