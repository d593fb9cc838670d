#include "foundation/files/MFile.h"

#include "foundation/MProductConstants.h"
#include "foundation/base/MGuard.h"
#include "foundation/files/MFileIdentity.h"
#include "foundation/files/MFileList.h"
#include "foundation/files/MInstallationNames.h"
#include "foundation/files/MRegistryKey.h"
#include "streams/basic/MStdFileStream.h"

#include <algorithm>
#include <vector>

namespace {

MSpecialFolders* replacedFolders = nullptr;
const MFolderOwnerScope* ownerScope = nullptr;

void CopyFileContent(const MString& from, const MString& to) {
    MStdFileStream source;
    source.Open(from, MOpenRead);
    MStdFileStream target;
    target.Open(to, MOpenWrite | MOpenCreate);
    source.CopyAllToInLargePieces(target);
    target.Close();
}

MString FindRegisteredInstallation(const MString& name) {
    MString directory;
    MGuard("MFile::GetSoftwareInstallationPath", [&] {
        MRegistryKey programs;
        programs.Open(MRegistryRoot::LocalMachine, MUninstallKeyName);
        MRegistryKey program;
        program.Open(programs, name);
        directory = MFile::GetDirectory(
            MFile::Normalize(MPlatform::TakePathText(program.GetValue("UninstallString"))));
    });
    return directory;
}

MList<MFileListEntry> ListDrives() {
    MList<MFileListEntry> list;
    for (const MString& drive : MFile::GetDrives()) list.Add({drive, true});
    return list;
}

/// An installation without a directory would be the empty path, of which every question says yes.
bool IsFound(const MString& directory) {
    return !directory.IsEmpty() && MFile::IsInstallation(directory);
}

}  // namespace

bool MFile::IsFile(const MString& path) {
    return Exists(path) && !IsDirectory(path);
}

bool MFile::IsInstallation(const MString& path) {
    return Exists(MGetStatePath(path));
}

bool MFile::IsSame(const MString& first, const MString& second) {
    const auto identity = MFindFileIdentity(first);
    const auto other = MFindFileIdentity(second);
    return identity || other ? identity == other : first.IsExactly(second);
}

int64_t MFile::GetFileSize(const MString& path) {
    MStdFileStream file;
    file.Open(path, MOpenRead);
    return file.GetSize();
}

void MFile::CreatePath(const MString& path) {
    // No system has longer ones; looking for the ancestors of such a path could take for ever.
    constexpr int32_t MaximumLength = 32767;
    if (path.GetLength() > MaximumLength) return CreateDirectory(path);
    std::vector<int32_t> missing;  // the lengths of paths
    for (MString standing = path; !IsDirectory(standing); standing = GetDirectory(standing)) {
        if (!missing.empty() && missing.back() == standing.GetLength()) break;
        missing.push_back(standing.GetLength());
    }
    std::ranges::reverse(missing);
    for (const int32_t length : missing) CreateDirectory(path.Substring(0, length));
}

void MFile::DeleteTree(const MString& path) {
    if (!IsDirectory(path) || IsLink(path)) {
        Delete(path);
        return;
    }
    for (const MFileListEntry& entry : GetFileList(path)) DeleteTree(Join(path, entry.name));
    RemoveDirectory(path);
}

void MFile::Copy(const MString& from, const MString& to) {
    if (!IsDirectory(from)) {
        CopyFileContent(from, to);
        return;
    }
    CreatePath(to);
    for (const MFileListEntry& entry : GetFileList(from)) Copy(Join(from, entry.name), Join(to, entry.name));
}

void MFile::Move(const MString& from, const MString& to) {
    MGuard("MFile::Move", [&] {
        if (!IsDirectory(from) || IsLink(from)) {
            Rename(from, to);
            return;
        }
        CreatePath(to);
        for (const MFileListEntry& entry : GetFileList(from))
            Move(Join(from, entry.name), Join(to, entry.name));
        RemoveDirectory(from);
    });
}

MList<MFileListEntry> MFile::GetFileList(const MString& directory, const MString& filter) {
    return directory.IsEmpty() ? ListDrives() : MListDirectory(directory, filter);
}

void MFile::GetFileListRecursed(const MString& directory, const MString& filter,
                                const FileListCallback& callback) {
    MGuard("MFile::GetFileListRecursed", [&] {
        for (const MFileListEntry& entry : GetFileList(directory, filter)) {
            if (!callback(directory, entry) || !entry.isDirectory) continue;
            const MString path = Join(directory, entry.name);
            if (!IsLink(path)) GetFileListRecursed(path, filter, callback);
        }
    });
}

MString MFile::GetSoftwareInstallationPath(const MString& name) {
    const MString registered = FindRegisteredInstallation(name);
    if (IsFound(registered)) return registered;

    MString path = Join(Join(GetSpecialPath(MSpecialFolderProgramFiles), MProductMaker), name);
    if (IsFound(path)) return path;

    path.Replace(MString(MProductMaker) + " ", MString());
    if (IsFound(path)) return path;
    MRaise(MExceptionGeneral, "Software installation has not been found. Please use the newest installer.");
}

MString MFile::GetSpecialPath(int32_t index) {
    if (index == MSpecialFolderUserTemporary) {
        MString path = GetSpecialPath(MSpecialFolderUserData);
        if (path.IsEmpty()) return path;
        path = Join(path, "!temp");
        CreatePath(path);
        return path;
    }
    MSpecialFolders& folders = replacedFolders ? *replacedFolders : MGetPlatformFolders();
    return ownerScope ? ownerScope->GetPath(folders, index) : folders.GetPath(index);
}

void MFile::UseSpecialFolders(MSpecialFolders* folders) {
    replacedFolders = folders;
}

MFolderOwnerScope::MFolderOwnerScope(MFolderOwner owner, const MString& installation)
    : owner(owner), installation(installation), outer(ownerScope) {
    ownerScope = this;
}

MFolderOwnerScope::~MFolderOwnerScope() {
    ownerScope = outer;
}
