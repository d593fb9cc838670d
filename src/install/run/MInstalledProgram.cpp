#include "install/run/MInstalledProgram.h"

#include "foundation/files/MFile.h"
#include "payload/MSfx.h"
#include "streams/basic/MOutputFile.h"

#include <cstring>

namespace {

/// Whether a file is just what the stream gives.
bool HoldsAlready(const MString& path, MStream& content) {
    if (!MFile::IsFile(path) || MFile::GetFileSize(path) != content.GetSize()) return false;
    MStdFileStream file;
    file.Open(path, MOpenRead);
    char expected[4096];
    char found[sizeof expected];
    int32_t count;
    while ((count = content.Read(expected, sizeof expected)) > 0)
        if (file.Read(found, count) != count || std::memcmp(expected, found, static_cast<size_t>(count)) != 0)
            return false;
    return true;
}

}  // namespace

void MLeaveInstalledProgram(const MString& path) {
    MSfx program;
    if (HoldsAlready(path, *program.OpenExecutable())) return;
    MFile::CreatePath(MFile::GetDirectory(path));
    MOutputFile copy(path);
    program.OpenExecutable()->CopyAllToInLargePieces(copy);
    copy.CommitProgram();
}
