#include "builder/checks/MNameCheck.h"

#include "builder/checks/MFileNameRules.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MStringFormatter.h"

void MNameCheck::CheckItem(const MXMLItem& item) {
    const MString& name = item.GetName();
    if (name == "dir" || name == "file" || name == "shortcut" || name == "shortcutdirectory")
        CheckName(item, item.GetAttribute("name", ""));
    if (name == "extension") CheckName(item, item.GetAttribute("dst", ""));
    // A child without a name takes the last name of the path.
    if (name == "files") CheckName(item, MFile::GetFileName(item.GetAttribute("path", "")));
    for (const MXMLItem* child : item.GetSubItems()) CheckItem(*child);
}

void MNameCheck::CheckName(const MXMLItem& item, const MString& name) {
    const MString fault = MFileNameRules::FindFault(name);
    if (!fault.IsEmpty())
        problems.AddError(definition.GetLine(item), MFormat("The name \"{0}\" {1}. Rename it.", name, fault));
}
