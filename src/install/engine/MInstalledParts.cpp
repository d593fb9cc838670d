#include "install/engine/MInstalledParts.h"

void MInstalledParts::Begin(const MXMLItem& pass) {
    current = {MString(), pass.GetAttribute("currentpath"), 0};
    for (const MXMLItem* item = &pass; item && current.name.IsEmpty(); item = item->GetParent())
        current.name = item->GetAttribute("name", "");
}

void MInstalledParts::CountFile() {
    for (MInstalledPart& part : parts)
        if (part.name == current.name && part.folder.IsExactly(current.folder)) {
            ++part.fileCount;
            return;
        }
    parts.Add({current.name, current.folder, 1});
}
