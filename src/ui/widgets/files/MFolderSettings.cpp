#include "ui/widgets/files/MFolderSettings.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"
#include "foundation/xml/MXMLItem.h"

namespace {

constexpr const char* FileName = ".dirsettings";
constexpr int64_t MaximumSize = 4096;

/// Whether something is there that is read and replaced without harm.
bool IsPlainFile(const MString& file) {
    return MFile::IsFile(file) && !MFile::IsLink(file) && !MFile::IsDevice(file);
}

}  // namespace

void MFolderSettings::Load(const MString& directory) {
    const MString file = MFile::Join(directory, FileName);
    MGuard("MFolderSettings::Load", [&] {
        if (!IsPlainFile(file) || MFile::GetFileSize(file) > MaximumSize) return;
        MXMLItem item;
        item.LoadFile(file);
        order = MValueEnum<Order>::FromName(item.GetAttribute("order"));
    });
}

void MFolderSettings::Save(const MString& directory) const {
    const MString file = MFile::Join(directory, FileName);
    MGuard("MFolderSettings::Save", [&] {
        if (MFile::Exists(file) && !IsPlainFile(file)) return;
        MXMLItem item("DirectorySettings");
        item.SetAttribute("order", MFolderOrderNames[static_cast<size_t>(order)]);
        item.SaveFile(file, true, "utf-8");
    });
}
