#include "setup/choices/MComponentRows.h"

#include "foundation/xml/MXMLSubItems.h"
#include "install/definition/MPlatformElement.h"

namespace {

MString GetComponentName(MXMLItem& element) {
    const MXMLItem* named = element.HasAttribute("name") ? &element : element.GetParent();
    return named->GetAttribute("name");
}

bool IsInConfiguration(MXMLItem& element, const MString& configurationId) {
    if (!element.HasAttribute("configurations")) return true;
    for (const MString& id : element.GetCachedAttribute().Split(','))
        if (id == configurationId) return true;
    return false;
}

}  // namespace

MComponentRows::MComponentRows(MXMLItem& definition) {
    for (MXMLItem& files : MXMLSubItems(definition, "files")) {
        AddComponent(files);
        for (MXMLItem& copy : MXMLSubItems(files, "copy")) AddComponent(copy);
    }
}

void MComponentRows::AddComponent(MXMLItem& element) {
    if (element.GetInt32Attribute("required", 0) != 0) return element.SetAttribute("enabled", "1");
    if (!MIsForThisPlatform(element)) return element.SetAttribute("enabled", "0");

    const MString name = GetComponentName(element);
    MComponentRow* row = Find(name);
    if (!row) {
        row = new MComponentRow{name, element.GetValue(), {}, true};
        rows.Add(row);
    }
    row->elements.Add(&element);
    element.SetAttribute("enabled", "1");
}

MComponentRow* MComponentRows::Find(const MString& name) const {
    for (MComponentRow* row : rows)
        if (row->name == name) return row;
    return nullptr;
}

void MComponentRows::ApplyConfiguration(const MString& configurationId) {
    for (MComponentRow* row : rows) row->checked = IsInConfiguration(*row->elements[0], configurationId);
}

void MComponentRows::Store() {
    for (const MComponentRow* row : rows)
        for (MXMLItem* element : row->elements) element->SetAttribute("enabled", row->checked ? "1" : "0");
}
