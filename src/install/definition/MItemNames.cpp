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

/// The names that an item has in its directory and in the copies of it.
void CheckItem(const MString& name, const MList<const MXMLItem*>& extensions) {
    CheckName(name);
    for (const MXMLItem* extension : extensions)
        if (MFile::GetExtension(name) == extension->GetAttribute("src", ""))
            CheckName(MFile::ChangeExtension(name, extension->GetAttribute("dst", "")));
}

void CheckItems(const MXMLItem& item, const MList<const MXMLItem*>& extensions) {
    // The name of the parent's path stands for one that is missing.
    CheckItem(MFile::GetFileName(item.GetAttribute("path", "")), extensions);
    for (int32_t i = 0; i < item.GetSubItemCount(); ++i) {
        const MXMLItem& child = *item.GetSubItem(i);
        if (!(child.GetName() == "dir" || child.GetName() == "file")) continue;
        CheckItem(child.GetAttribute("name", ""), extensions);
        CheckItems(child, extensions);
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
        MList<const MXMLItem*> extensions;
        for (const MXMLItem& copy : MXMLSubItems(files, "copy"))
            for (const MXMLItem& extension : MXMLSubItems(copy, "extension")) {
                CheckName(extension.GetAttribute("dst", ""));
                extensions.Add(&extension);
            }
        CheckItems(files, extensions);
    }
    CheckLinks(root);
}
