#include "install/definition/MItemNames.h"

#include "foundation/base/MGuard.h"
#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/files/MSafeName.h"
#include "foundation/xml/MXMLSubItems.h"

namespace {

using Visitor = std::function<void(const MXMLItem& item, const MString& name)>;

/// The plain names and, for each copy that has extensions, those that differ from them.
void VisitItems(const MXMLItem& parent, const MList<MItemExtensions>& copies, const Visitor& visit) {
    for (int32_t i = 0; i < parent.GetSubItemCount(); ++i) {
        const MXMLItem& child = *parent.GetSubItem(i);
        if (!(child.GetName() == "dir" || child.GetName() == "file")) continue;
        const MString plain = MGetItemName(parent, child, {});
        visit(child, plain);
        for (const MItemExtensions& extensions : copies) {
            const MString name = MGetItemName(parent, child, extensions);
            if (!name.IsExactly(plain)) visit(child, name);
        }
        VisitItems(child, copies, visit);
    }
}

void VisitLinks(const MXMLItem& item, const Visitor& visit) {
    for (const MXMLItem& shortcut : MXMLSubItems(item, "shortcut"))
        visit(shortcut, shortcut.GetAttribute("name", ""));
    for (const MXMLItem& folder : MXMLSubItems(item, "shortcutdirectory")) {
        visit(folder, folder.GetAttribute("name", ""));
        VisitLinks(folder, visit);
    }
}

}  // namespace

MItemExtensions MGetItemExtensions(const MXMLItem& pass) {
    MItemExtensions extensions;
    if (!(pass.GetName() == "copy")) return extensions;
    for (const MXMLItem& extension : MXMLSubItems(pass, "extension")) {
        extensions.sourceExtensions.Add(extension.GetAttribute("src"));
        extensions.destinationExtensions.Add(extension.GetAttribute("dst"));
    }
    return extensions;
}

MString MGetItemName(const MXMLItem& parent, const MXMLItem& child, const MItemExtensions& extensions) {
    MString name = child.GetAttribute("name", "");
    const bool isMissing = name.IsEmpty();
    if (isMissing) name = parent.GetAttribute("path", "");
    name.ReplaceChar('\\', "/");
    if (isMissing) name = MFile::GetFileName(name);
    if (extensions.sourceExtensions.IsEmpty()) return name;
    const MString extension = MFile::GetExtension(name);
    for (int32_t i = 0; i < extensions.sourceExtensions.GetCount(); ++i)
        if (extension == extensions.sourceExtensions[i])
            return MFile::ChangeExtension(name, extensions.destinationExtensions[i]);
    return name;
}

void MForEachItemName(const MXMLItem& root, const Visitor& visit) {
    for (const MXMLItem& files : MXMLSubItems(root, "files")) {
        MList<MItemExtensions> copies;
        for (const MXMLItem& copy : MXMLSubItems(files, "copy"))
            MGuard("MForEachItemName", [&] { copies.Add(MGetItemExtensions(copy)); });
        VisitItems(files, copies, visit);
    }
    VisitLinks(root, visit);
}

void MRequireItemName(const MString& name) {
    const MString fault = MFindNameFault(name);
    if (fault.IsEmpty()) return;
    MRaise(
        MExceptionGeneral,
        "The name \"{0}\" in the definition {1}. The installer is damaged or not trustworthy; please get it "
        "again from its maker.",
        name, fault);
}

void MCheckItemNames(const MXMLItem& root) {
    MForEachItemName(root, [](const MXMLItem&, const MString& name) { MRequireItemName(name); });
}
