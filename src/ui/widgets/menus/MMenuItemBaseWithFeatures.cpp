#include "ui/widgets/menus/MMenuItemBaseWithFeatures.h"

#include "foundation/xml/MXMLItem.h"
#include "ui/widgets/menus/MMenuBase.h"

MMenuItemBaseWithFeatures::MMenuItemBaseWithFeatures(const MString& text)
    : MListBoxItemBaseWithFeatures(text) {}

MMenuItemBaseWithFeatures::~MMenuItemBaseWithFeatures() = default;

void MMenuItemBaseWithFeatures::LoadFromXml(MXMLItem& item) {
    MListBoxItemBaseWithFeatures::LoadFromXml(item);
    shortcut = item.GetAttribute("shortcut", shortcut);
}
