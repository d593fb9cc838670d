#include "install/definition/MItemNames.h"

#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/files/MSafeName.h"
#include "foundation/xml/MXMLSubItems.h"

namespace {

void CheckName(const MString& name) {
    if (MIsSafeName(name)) return;
    MRaise(MExceptionGeneral,
           "The name \"{0}\" in the definition leads out of its directory. The installer is damaged or "
           "not trustworthy; please get it again from its maker.",
           name);
}

void CheckItems(const MXMLItem& item) {
    for (int32_t i = 0; i < item.GetSubItemCount(); ++i) {
        const MXMLItem& child = *item.GetSubItem(i);
        if (child.GetName() == "dir" || child.GetName() == "file") CheckName(child.GetAttribute("name", ""));
        if (child.GetName() == "extension") CheckName(child.GetAttribute("dst", ""));
        CheckItems(child);
    }
}

void CheckLinks(const MXMLItem& item) {
    for (const MXMLItem& shortcut : MXMLSubItems(item, "shortcut"))
        CheckName(shortcut.GetAttribute("name", ""));
    for (const MXMLItem& folder : MXMLSubItems(item, "shortcutdirectory")) {
        CheckName(folder.GetAttribute("name", ""));
        CheckLinks(folder);
    }
}

}  // namespace

void MCheckItemNames(const MXMLItem& root) {
    for (const MXMLItem& files : MXMLSubItems(root, "files")) {
        CheckName(MFile::GetFileName(files.GetAttribute("path", "")));
        CheckItems(files);
    }
    CheckLinks(root);
}
