#include "builder/checks/MUpdateFileCheck.h"

#include "builder/definition/MDefinitionText.h"
#include "builder/definition/MUpdateInformation.h"
#include "foundation/base/MException.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/xml/MXMLSubItems.h"
#include "install/definition/MItemNames.h"

namespace {

bool HasAttribute(const MXMLItem& item, const char* name) {
    for (const MAttribute* attribute : item.GetAttributes())
        if (attribute->name == name) return true;
    return false;
}

void CheckFiles(const MXMLItem& parent, MList<MString>& faults) {
    for (const MXMLItem* child : parent.GetSubItems()) {
        CheckFiles(*child, faults);
        if (!(child->GetName() == "file")) continue;
        const MString name = child->GetAttribute("name", "");
        const MString op = child->GetAttribute("op", "");
        const bool isWritten = op == "create" || op == "update";
        if (name.IsEmpty()) faults.Add("has a file without a name. Make it again.");
        if (!isWritten && !(op == "leave") && !(op == "delete"))
            faults.Add(MFormat("does not tell what becomes of \"{0}\". Make it again.", name));
        if (isWritten && !(HasAttribute(*child, "filestart") && HasAttribute(*child, "filesize")))
            faults.Add(MFormat("brings no content for \"{0}\". Make it again.", name));
    }
}

}  // namespace

bool MIsUpdate(const MXMLItem& root) {
    return root.FindSubItem("updateinformation") != nullptr;
}

MList<MString> MFindUpdateFaults(const MXMLItem& root) {
    MList<MString> faults;
    const MUpdateInformation offer = MUpdateInformation::Read(*root.GetSubItem("updateinformation"));
    offer.Check(faults);
    const bool areTimes = MIsOfferTime(offer.baseTime) && MIsOfferTime(offer.time);
    if (areTimes && !offer.isPackage && MFileTimeFromText(offer.time) <= MFileTimeFromText(offer.baseTime))
        faults.Add(
            MFormat("is not newer than {0}, the version that it is laid over. Make it with a later --time.",
                    offer.baseTime));
    try {
        MCheckItemNames(root);
    } catch (const MException& exception) {
        faults.Add("cannot be trusted: " + exception.GetMessage());
    }
    for (const MXMLItem& files : MXMLSubItems(root, "files")) CheckFiles(files, faults);
    return faults;
}
