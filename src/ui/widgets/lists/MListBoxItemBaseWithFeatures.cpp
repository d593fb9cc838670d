#include "ui/widgets/lists/MListBoxItemBaseWithFeatures.h"

#include "foundation/xml/MXMLItem.h"
#include "ui/widgets/content/MContents.h"

#include <algorithm>

void MListBoxItemBaseWithFeatures::LoadFromXml(MXMLItem& item) {
    text = item.GetAttribute("text", text);
    id = item.GetInt32Attribute("id", id);
    if (item.HasAttribute("icon")) icon = MValueEnum<MStdIcon>::FromName(item.GetCachedAttribute());
    check = static_cast<uint8_t>(std::clamp(item.GetInt32Attribute("check", check), 0, 2));
    hasCheckBox = item.GetInt32Attribute("hascheckbox", hasCheckBox) != 0;
    isEnabled = item.GetInt32Attribute("enabled", isEnabled) != 0;
    isSelected = item.GetInt32Attribute("selected", isSelected) != 0;
}

MPoint MListBoxItemBaseWithFeatures::GetTextSize(MDrawer& drawer, const MContentLook& look, int32_t) {
    return MContentText(text).GetSize(drawer, look);
}

void MListBoxItemBaseWithFeatures::PaintText(MDrawer& drawer, const MRect& rect, const MContentLook& look) {
    MContentText(text).Paint(drawer, rect, look);
}
