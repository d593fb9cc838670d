#include "install/definition/MItemNames.h"

#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/xml/MXMLSubItems.h"

namespace {

bool IsSeparator(MChar character) {
    return character == MChar('/') || character == MChar('\\');
}

bool IsDrive(const MString& name) {
    return name.GetLength() > 1 && name[0].IsLetter() && name[1] == MChar(':');
}

void CheckName(const MString& name) {
    if (MIsInsideName(name)) return;
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

bool MIsInsideName(const MString& name) {
    if (name.IsEmpty()) return true;
    if (IsSeparator(name[0]) || IsDrive(name)) return false;
    if (!name.Contains("..")) return true;
    int32_t start = 0;
    for (int32_t i = 0; i <= name.GetLength(); ++i) {
        if (i < name.GetLength() && !IsSeparator(name[i])) continue;
        if (name.Substring(start, i - start) == "..") return false;
        start = i + 1;
    }
    return true;
}

void MCheckItemNames(const MXMLItem& root) {
    for (const MXMLItem& files : MXMLSubItems(root, "files")) {
        CheckName(MFile::GetFileName(files.GetAttribute("path", "")));
        CheckItems(files);
    }
    CheckLinks(root);
}
