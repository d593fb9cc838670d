#include "setup/choices/MDefaultPaths.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"
#include "streams/basic/MOutputFile.h"

MDefaultPaths::MDefaultPaths()
    : file(MFile::Join(MFile::GetSpecialPath(MSpecialFolderUserData), "DefaultPaths.xml")) {
    const bool isRead = MGuard("DefaultPaths load", [this] { paths.LoadFile(file); });
    if (!isRead) paths.CopyFrom(MXMLItem());
    paths.SetName("DefaultPaths");
}

MString MDefaultPaths::Get(const MString& key) const {
    const MXMLItem* path = paths.FindSubItem("Path", "id", key);
    return path ? path->GetValue() : MString();
}

void MDefaultPaths::Set(const MString& key, const MString& path) {
    paths.GetOrAddSubItem("Path", "id", key)->SetValue(path);
}

void MDefaultPaths::Save() {
    MFile::CreatePath(MFile::GetDirectory(file));
    MOutputFile output(file);
    paths.Save(output, false, "utf-8");
    output.Commit(false);
}
