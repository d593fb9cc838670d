#include "install/MInstallLog.h"

#include "foundation/MFile.h"
#include "foundation/MGuard.h"
#include "foundation/MUnicode.h"

MInstallLog::MInstallLog() {
    MGuard("MInstallLog", [this] {
        const MString directory = MFile::GetSpecialPath(MSpecialFolderUserData);
        MFile::CreatePath(directory);
        file.Open(MFile::Join(directory, "InstallerLog.txt"), MOpenWrite | MOpenCreate);
    });
}

void MInstallLog::Write(const MString& line) {
    if (!file.IsOpen()) return;
    MGuard("MInstallLog", [&] {
        const std::string bytes = MEncodeUTF8Exact(line) + '\n';
        file.Write(bytes.data(), static_cast<int32_t>(bytes.size()));
    });
}

void MInstallLog::Flush() {
    if (file.IsOpen()) MGuard("MInstallLog", [this] { file.Flush(); });
}
