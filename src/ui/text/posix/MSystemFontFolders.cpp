#include "ui/text/MSystemFontFolders.h"

#include "foundation/files/MFile.h"
#include "foundation/files/posix/MNativePath.h"
#include "foundation/files/posix/MUserFolders.h"

#include <algorithm>
#include <cstdlib>

namespace {

void AddOnce(MList<MString>& folders, const MString& folder) {
    const auto isSame = [&](const MString& other) { return other.IsExactly(folder); };
    if (std::none_of(folders.begin(), folders.end(), isSame)) folders.Add(folder);
}

/// The data directories of the XDG base directory specification.
void AddDataDirectories(MList<MString>& folders, const char* directories) {
    for (const MString& directory : MPathFromNative(directories ? directories : "").Split(u':'))
        if (directory.StartsWith("/")) AddOnce(folders, MFile::Join(MFile::Normalize(directory), "fonts"));
}

}  // namespace

MList<MString> MGetSystemFontFolders() {
    const MUserFolders user;
    MList<MString> folders;
    AddOnce(folders, MFile::GetSpecialPath(MSpecialFolderFonts));
    AddOnce(folders, MFile::Join(user.GetData(), "fonts"));
    AddOnce(folders, MFile::Join(user.GetHome(), ".fonts"));
    AddDataDirectories(folders, std::getenv("XDG_DATA_DIRS"));
    AddDataDirectories(folders, "/usr/local/share:/usr/share");
    return folders;
}
