#include "builder/reports/MPayloadExtractor.h"

#include "builder/definition/MDefinitionText.h"
#include "foundation/base/MGuard.h"
#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/files/MSafeName.h"
#include "install/definition/MItemNames.h"

namespace {

/// Writes out the names that a path stood for.
void NameItems(const MXMLItem& parent) {
    for (MXMLItem* child : parent.GetSubItems()) {
        if (!(child->GetName() == "dir" || child->GetName() == "file")) continue;
        child->SetAttribute("name", MGetItemName(parent, *child, {}));
        NameItems(*child);
    }
}

}  // namespace

void MPayloadExtractor::Run(const MString& directory) {
    const MString root = MFile::Normalize(directory);
    const MList<MPayloadItem> items = MCollectPayloadItems(file.GetLibrary());
    RequireEmpty(root);
    CheckNames(items);
    MFile::CreatePath(root);
    for (const MPayloadItem& item : items) ExtractItem(item, root + "/" + item.path);
    PointAtSources(items);
    WriteDefinition(root + "/definition.xml");
    output.Tell(MFormat("{0}: {1} items and definition.xml", directory, items.GetCount()));
}

void MPayloadExtractor::RequireEmpty(const MString& directory) const {
    if (!MFile::Exists(directory)) return;
    if (!MFile::IsDirectory(directory) || !MFile::GetFileList(directory).IsEmpty())
        MRaise(MExceptionGeneral, "\"{0}\" is not empty. Name a new directory.", directory);
}

void MPayloadExtractor::CheckNames(const MList<MPayloadItem>& items) {
    MCheckItemNames(file.GetLibrary());
    for (const MPayloadItem& item : items) {
        // Nothing behind the last slash would be the directory itself.
        const MString fault = item.path.EndsWith("/") ? MString("is empty") : MFindNameFault(item.path);
        if (!fault.IsEmpty())
            MRaise(MExceptionGeneral, "The name \"{0}\" in the payload {1}. Do not trust this file.",
                   item.path, fault);
    }
}

void MPayloadExtractor::ExtractItem(const MPayloadItem& item, const MString& path) {
    MFile::CreatePath(MFile::GetDirectory(path));
    MStdFileStream target;
    target.Open(path, MOpenWrite | MOpenCreate);
    file.GetLibrary().OpenItem(item.element)->CopyAllToInLargePieces(target);
    target.Close();
    // A time that cannot be read or set is no reason to leave the rest packed.
    const MString time = item.element->GetAttribute("time", "");
    if (!time.IsEmpty())
        MGuard("MPayloadExtractor", [&] { MFile::SetFileTime(path, MFileTimeFromText(time)); });
}

void MPayloadExtractor::PointAtSources(const MList<MPayloadItem>& items) {
    for (const MPayloadItem& item : items)
        if (!(item.element->GetName() == "file")) item.element->SetAttribute("name", item.path);
    int32_t groupCount = 0;
    for (MXMLItem* element : file.GetLibrary().GetSubItems()) {
        if (!(element->GetName() == "files")) continue;
        NameItems(*element);
        element->SetAttribute("path", MGetGroupFolder(*element, ++groupCount));
    }
}

void MPayloadExtractor::WriteDefinition(const MString& path) {
    const std::string text = MGetDefinitionText(file.GetLibrary());
    MStdFileStream target;
    target.Open(path, MOpenWrite | MOpenCreate);
    target.Write(text.data(), static_cast<int32_t>(text.size()));
    target.Close();
}
