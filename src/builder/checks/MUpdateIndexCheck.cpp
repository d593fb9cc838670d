#include "builder/checks/MUpdateIndexCheck.h"

#include "builder/checks/MFileNameRules.h"
#include "builder/definition/MDefinitionText.h"
#include "builder/definition/MUpdateInformation.h"
#include "foundation/files/MFile.h"
#include "foundation/files/MSafeName.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/text/MUnicode.h"
#include "foundation/xml/MXMLSubItems.h"

bool MUpdateIndexCheck::IsIndex(const MXMLItem& root) {
    return !(root.GetName() == "install") && (root.GetName() == "updates" || root.FindSubItem("update"));
}

void MUpdateIndexCheck::Run() {
    for (const MXMLItem& item : MXMLSubItems(index.GetRoot(), "update")) {
        CheckOffer(item);
        CheckFileName(item);
        CheckTime(item);
    }
}

void MUpdateIndexCheck::CheckOffer(const MXMLItem& item) {
    MList<MString> faults;
    MUpdateInformation::Read(item).Check(faults);
    for (const MString& fault : faults) problems.AddError(index.GetLine(item), "This offer " + fault);
    if (item.GetInt64Attribute("size", 0) <= 0)
        problems.AddError(index.GetLine(item), "This offer has no size. Give it that of its file, in bytes.");
}

void MUpdateIndexCheck::CheckFileName(const MXMLItem& item) {
    const MString name = item.GetAttribute("filename", "");
    if (!MIsSafeFileName(name) || MFile::GetExtension(name).IsEmpty())
        return problems.AddError(
            index.GetLine(item),
            MFormat("\"{0}\" is no name of a file with an extension. Update managers ask for "
                    "the name without it: correct \"filename\".",
                    name));
    const std::string key = MEncodeUTF8Exact(MFileNameRules::FoldCase(MFile::GetBaseName(name)));
    const auto [other, isNew] = names.try_emplace(key, index.GetLine(item));
    if (!isNew)
        problems.AddError(index.GetLine(item),
                          MFormat("The offer in line {0} would be asked for by the same name. "
                                  "Give \"{1}\" another one.",
                                  other->second, name));
}

void MUpdateIndexCheck::CheckTime(const MXMLItem& item) {
    const MString time = item.GetAttribute("time", "");
    if (!MIsOfferTime(time)) return;
    const bool isPackage = item.GetInt32Attribute("package", 0) != 0;
    const auto [other, isNew] =
        times[isPackage ? 1 : 0].try_emplace(MEncodeUTF8Exact(time), index.GetLine(item));
    if (!isNew)
        problems.AddError(index.GetLine(item), MFormat("The offer in line {0} has the same time, by which an "
                                                       "installation knows it. Give one another time.",
                                                       other->second));
    if (isPackage) return;
    if (!newest.IsEmpty() && MFileTimeFromText(time) < MFileTimeFromText(newest))
        return problems.AddError(
            index.GetLine(item),
            "This update is older than one before it, which would be installed first. Put "
            "updates into the order of their times.");
    newest = time;
}
