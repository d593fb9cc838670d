#include "install/definition/MBundlePath.h"

#include "foundation/files/MFile.h"

MString MGetBundlePath(const MString& path) {
    if (!(MFile::GetExtension(path) == "aaxplugin")) return path;
    const bool wide =
        MFile::GetSpecialPath(MSpecialFolderProgramFiles).Contains("x86") && !path.Contains("(x86)");
    const MString contents = MFile::Join(MFile::Join(path, "Contents"), wide ? "x64" : "Win32");
    return MFile::Join(contents, MFile::GetFileName(path));
}
