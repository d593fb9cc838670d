#include "update/MDownloadIndex.h"

#include "foundation/base/MRaise.h"
#include "foundation/files/MSafeName.h"
#include "foundation/xml/MXMLSubItems.h"
#include "payload/MDownloadNames.h"
#include "payload/MPayloadFormat.h"
#include "payload/MPayloadIndex.h"
#include "streams/basic/MOutputFile.h"
#include "streams/hashes/MMD5Text.h"

namespace {

enum class NameKind { File, Directory };

[[nodiscard]] MString CheckName(const MString& name, NameKind kind) {
    if (name.GetLength() <= MDownloadNames::MaximumLength) {
        MString slashed = name;
        slashed.ReplaceChar('\\', "/");
        MString result;
        int32_t depth = 0;
        bool isTaken = false;
        for (const MString& component : slashed.Split('/')) {
            if (component.IsExactly(".")) continue;
            if (++depth == 1) isTaken = MDownloadNames::IsTaken(component);
            if (depth > 1) result.Append("/");
            result.Append(component);
        }
        if (!MIsSafeName(name) || isTaken || (kind == NameKind::File && depth == 0))
            MRaise(
                MExceptionGeneral,
                "The name \"{0}\" in the download list leads out of its directory. The server is damaged or "
                "not trustworthy; nothing has been written.",
                name);
        if (depth <= MDownloadNames::MaximumDepth) return result;
    }
    MRaise(
        MExceptionGeneral,
        "A name in the download list has more than {0} components or {1} characters. The server is damaged "
        "or not trustworthy; nothing has been written.",
        MDownloadNames::MaximumDepth, MDownloadNames::MaximumLength);
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

void MDownloadIndex::ForgetProgress() {
    for (const char* name : {"Downloaded", "DownloadedTotal"}) root.RemoveAttribute(name);
    for (MXMLItem& file : MXMLSubItems(root, "File"))
        for (const char* name : {"NextPartIndex", "NextPartSize", "Finished"}) file.RemoveAttribute(name);
}

void MDownloadIndex::Check() {
    for (MXMLItem& directory : MXMLSubItems(root, "Directory"))
        directory.SetValue(CheckName(directory.GetValue(), NameKind::Directory));
    for (MXMLItem& file : MXMLSubItems(root, "File")) {
        file.SetValue(CheckName(file.GetValue(), NameKind::File));
        CheckParts(file);
    }
}

void MDownloadIndex::Save(const MString& path) const {
    MOutputFile file(path);
    root.SaveCompressed(file, "utf-8");
    file.Commit();
}
