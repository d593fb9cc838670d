#include "builder/definition/MUpdateInformation.h"

#include "builder/definition/MDefinitionText.h"
#include "foundation/base/MGuard.h"
#include "foundation/files/MSafeName.h"
#include "foundation/text/MStringFormatter.h"

namespace {

void SetUnlessEmpty(MXMLItem& item, const char* attribute, const MString& value) {
    if (!value.IsEmpty()) item.SetAttribute(attribute, value);
}

}  // namespace

MUpdateInformation MUpdateInformation::Read(const MXMLItem& item) {
    MUpdateInformation offer;
    offer.name = item.GetAttribute("name", "");
    offer.text = item.GetValue();
    offer.time = item.GetAttribute("time", "");
    offer.baseTime = item.GetAttribute("basetime", "");
    offer.installationName = item.GetAttribute("installationname", "");
    offer.showInfo = item.GetAttribute("showinfo", "");
    offer.execute = item.GetAttribute("execute", "");
    offer.restarts = item.GetInt32Attribute("restart", 0) != 0;
    offer.isPackage = item.GetInt32Attribute("package", 0) != 0;
    return offer;
}

void MUpdateInformation::WriteTo(MXMLItem& item) const {
    item.SetAttribute("name", name);
    item.SetAttribute("time", time);
    item.SetValue(text);
    SetUnlessEmpty(item, "showinfo", showInfo);
    SetUnlessEmpty(item, "execute", execute);
    if (restarts) item.SetAttribute("restart", 1);
    if (isPackage) item.SetAttribute("package", 1);
}

void MUpdateInformation::WriteInformation(MXMLItem& item) const {
    WriteTo(item);
    item.SetAttribute("basetime", baseTime);
    item.SetAttribute("installationname", installationName);
}

void MUpdateInformation::Check(MList<MString>& faults) const {
    if (name.IsEmpty()) faults.Add("has no name. Give it one by --name.");
    if (!MIsOfferTime(time))
        faults.Add(MFormat("has \"{0}\" for its time. Write it as \"2014-12-23 14:19:26\".", time));
    if (const MString fault = MFindNameFault(execute); !fault.IsEmpty())
        faults.Add(
            MFormat("executes \"{0}\", which {1}. Name a file in the product's directory.", execute, fault));
}

bool MIsOfferTime(const MString& text) {
    bool isTime = false;
    MGuard("MIsOfferTime", [&] { isTime = MFileTimeToText(MFileTimeFromText(text)).IsExactly(text); });
    return isTime;
}
