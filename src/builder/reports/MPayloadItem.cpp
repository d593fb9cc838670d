#include "builder/reports/MPayloadItem.h"

#include "foundation/files/MFile.h"
#include "foundation/text/MNumberText.h"
#include "foundation/xml/MXMLSubItems.h"
#include "install/definition/MItemNames.h"

namespace {

bool HasAttribute(const MXMLItem& item, const MString& name) {
    for (const MAttribute* attribute : item.GetAttributes())
        if (attribute->name == name) return true;
    return false;
}

bool IsUnusable(MChar character) {
    return character.IsControl() || MString("<>:\"/\\|?*").FindChar(character) >= 0;
}

/// Puts a name behind a folder as it stands; `MFile::Join` would work off leading dots.
MString Append(const MString& folder, const MString& name) {
    return folder + "/" + name;
}

/// Adds an element with the name of its file, if it has data.
void CollectNamed(MXMLItem& element, const MString& folder, MList<MPayloadItem>& items) {
    if (HasAttribute(element, "filestart"))
        items.Add({&element, Append(folder, MFile::GetFileName(element.GetAttribute("name", "data")))});
}

void CollectChildren(const MXMLItem& parent, const MString& folder, MList<MPayloadItem>& items) {
    for (MXMLItem* child : parent.GetSubItems()) {
        const MString path = Append(folder, MGetItemName(parent, *child, {}));
        if (child->GetName() == "dir") CollectChildren(*child, path, items);
        if (child->GetName() == "file" && HasAttribute(*child, "filestart")) items.Add({child, path});
    }
}

}  // namespace

MList<MPayloadItem> MCollectPayloadItems(const MXMLItem& root) {
    MList<MPayloadItem> items;
    int32_t groupCount = 0;
    for (MXMLItem* element : root.GetSubItems()) {
        const MString& name = element->GetName();
        if (name == "files") {
            CollectChildren(*element, MGetGroupFolder(*element, ++groupCount), items);
            continue;
        }
        CollectNamed(*element, name, items);
        for (MXMLItem& scaled : MXMLSubItems(*element, "scaled"))
            CollectNamed(scaled, name + "-" + scaled.GetAttribute("percent", ""), items);
    }
    return items;
}

MString MGetGroupFolder(const MXMLItem& files, int32_t number) {
    MString folder = MNumberToText(number, {.width = 2, .pad = '0'});
    MString name = files.GetAttribute("name", "");
    for (int32_t i = 0; i < name.GetLength(); ++i)
        if (IsUnusable(name[i])) name.SetChar(i, MChar('-'));
    while (!name.IsEmpty() &&
           (name[name.GetLength() - 1] == MChar('.') || name[name.GetLength() - 1].IsBlank()))
        name.Cut(name.GetLength() - 1);
    return name.IsEmpty() ? folder : folder + "-" + name;
}
