#include "update/MDownloadIndex.h"

#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/files/MSafeName.h"
#include "foundation/xml/MXMLSubItems.h"
#include "payload/MPayloadFormat.h"
#include "payload/MPayloadIndex.h"
#include "streams/basic/MOutputFile.h"
#include "streams/hashes/MMD5Text.h"

namespace {

[[nodiscard]] bool IsListItself(const MString& name) {
    const MString directory = "directory";
    return MFile::Join(directory, name) == MFile::Join(directory, MDownloadIndex::StateName);
}

void CheckName(const MString& name) {
    if (MIsSafeName(name) && !IsListItself(name)) return;
    MRaise(MExceptionGeneral,
           "The name \"{0}\" in the download list leads out of its directory. The server is damaged or not "
           "trustworthy; nothing has been written.",
           name);
}

/// Without this a file that no part can ever complete would be tried for ever.
void CheckParts(const MXMLItem& file) {
    if (file.FindSubItem("Part")) return;
    if (MMD5OfBlock(nullptr, 0) == file.GetAttribute("md5")) return;
    MRaise(
        MExceptionGeneral,
        "The download list has no parts for the file \"{0}\". The server is damaged; please tell its maker.",
        file.GetValue());
}

}  // namespace

void MDownloadIndex::Load(MStream& stored) {
    MMemoryStream text;
    MReadPayloadIndex(stored, MPayloadFormat::IndexCompressed, text);
    root.Clear();
    root.Load(text);
}

void MDownloadIndex::Check() const {
    for (const MXMLItem& directory : MXMLSubItems(root, "Directory")) CheckName(directory.GetValue());
    for (const MXMLItem& file : MXMLSubItems(root, "File")) {
        CheckName(file.GetValue());
        CheckParts(file);
    }
}

void MDownloadIndex::Save(const MString& path) const {
    MOutputFile file(path);
    root.SaveCompressed(file, "utf-8");
    file.Commit();
}
