#include "install/engine/MInstallLog.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MUnicode.h"

MInstallLog::MInstallLog() {
    MGuard("MInstallLog", [this] {
        const MString directory = MFile::GetSpecialPath(MSpecialFolderUserData);
        MFile::CreatePath(directory);
        file.Open(MFile::Join(directory, "InstallerLog.txt"), MOpenWrite | MOpenCreate);
    });
}

void MInstallLog::Write(std::initializer_list<MString> parts) {
    if (!file.IsOpen()) return;
    line.clear();
    for (const MString& part : parts) line += MEncodeUTF8Exact(part);
    line += '\n';
    MGuard("MInstallLog", [this] { file.Write(line.data(), static_cast<int32_t>(line.size())); });
}

void MInstallLog::Flush() {
    if (file.IsOpen()) MGuard("MInstallLog", [this] { file.Flush(); });
}
