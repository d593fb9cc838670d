#include "setup/choices/MConfigurationChoice.h"

#include "foundation/base/MException.h"
#include "foundation/xml/MXMLSubItems.h"
#include "install/definition/MPlatformElement.h"

MConfigurationChoice::MConfigurationChoice(MXMLItem& definition, bool is64BitSystem)
    : is64BitSystem(is64BitSystem) {
    for (MXMLItem& alternative : MXMLSubItems(definition, "configuration")) {
        if (!MIsForThisPlatform(alternative)) continue;
        (void)alternative.GetAttribute("name");
        (void)alternative.GetAttribute("id");
        alternatives.Add(&alternative);
    }
}

bool MConfigurationChoice::IsAvailable(const MXMLItem& alternative) const {
    return alternative.GetInt32Attribute("x64", 0) == 0 || is64BitSystem;
}

MXMLItem* MConfigurationChoice::Find(const MString& id) const {
    for (MXMLItem* alternative : alternatives)
        if (alternative->GetAttribute("id") == id) return alternative;
    return nullptr;
}

MXMLItem* MConfigurationChoice::GetProposal() const {
    return alternatives.IsEmpty() ? nullptr : alternatives[0];
}

void MConfigurationChoice::Apply(const MXMLItem& alternative, MSetupSession& session) const {
    session.ConfigurationId = alternative.GetAttribute("id");
    session.ShowComponents = alternative.GetInt32Attribute("setup", 1) != 0;
    session.UseX64 = alternative.GetInt32Attribute("x64", 0) != 0;
    if (!IsAvailable(alternative))
        MRaise(MExceptionGeneral, "This configuration does not support 32-bit operating system.");
    session.CreatePathMacros();
}
