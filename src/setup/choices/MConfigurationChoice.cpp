#include "setup/choices/MConfigurationChoice.h"

#include "foundation/module/MPlatform.h"
#include "foundation/xml/MXMLSubItems.h"
#include "install/definition/MPlatformElement.h"

MConfigurationChoice::MConfigurationChoice(MXMLItem& definition) {
    for (MXMLItem& alternative : MXMLSubItems(definition, "configuration")) {
        if (!MIsForThisPlatform(alternative)) continue;
        (void)alternative.GetAttribute("name");
        (void)alternative.GetAttribute("id");
        alternatives.Add(&alternative);
    }
}

bool MConfigurationChoice::IsAvailable(const MXMLItem& alternative) const {
    return alternative.GetInt32Attribute("x64", 0) == 0 || MPlatform::Is64BitSystem();
}

MXMLItem* MConfigurationChoice::Find(const MString& id) const {
    for (MXMLItem* alternative : alternatives)
        if (alternative->GetAttribute("id") == id) return alternative;
    return nullptr;
}

MXMLItem* MConfigurationChoice::GetProposal() const {
    return alternatives.IsEmpty() ? nullptr : alternatives[0];
}

bool MConfigurationChoice::Apply(const MXMLItem& alternative, MSetupSession& session) const {
    session.ConfigurationId = alternative.GetAttribute("id");
    session.ShowComponents = alternative.GetInt32Attribute("setup", 1) != 0;
    session.UseX64 = alternative.GetInt32Attribute("x64", 0) != 0;
    if (!IsAvailable(alternative)) return false;
    session.CreatePathMacros();
    return true;
}
