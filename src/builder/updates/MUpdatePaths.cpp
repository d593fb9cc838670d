#include "builder/updates/MUpdatePaths.h"

#include "foundation/files/MFile.h"
#include "install/definition/MItemNames.h"

namespace {

MString GetDestination(const MXMLItem& pass) {
    MString destination = pass.GetAttribute("destination", "");
    destination.ReplaceChar(MChar('\\'), "/");
    return destination;
}

}  // namespace

bool MUpdatePaths::IsSingleFile(const MXMLItem& files) {
    const MXMLItem* file = files.FindSubItem("file");
    return file && MGetItemName(files, *file, {}).IsEmpty();
}

MString MUpdatePaths::GetDirectory(const MXMLItem& files, const MXMLItem& pass) {
    const MString destination = GetDestination(pass);
    return IsSingleFile(files) ? MFile::GetDirectory(destination) : destination;
}

MString MUpdatePaths::GetName(const MXMLItem& parent, const MXMLItem& child) {
    const MString name = MGetItemName(parent, child, {});
    return name.IsEmpty() ? MFile::GetFileName(GetDestination(parent)) : name;
}

MString MUpdatePaths::Append(const MString& path, const MString& name) {
    return path.IsEmpty() ? name : path + "/" + name;
}
