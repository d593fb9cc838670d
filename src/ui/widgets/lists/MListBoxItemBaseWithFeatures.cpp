#include "ui/widgets/lists/MListBoxItemBaseWithFeatures.h"

#include "foundation/xml/MXMLItem.h"
#include "ui/text/MFont.h"
#include "ui/text/MTextLayout.h"

#include <algorithm>

namespace {

constexpr char16_t Ellipsis = 0x2026;

/// As much of the text as fits into a width, with an ellipsis behind it if that is not all.
MString Shorten(MFont& font, const MString& text, int32_t width) {
    if (font.GetTextWidth(text) <= width) return text;
    MString mark;
    mark.Append(MChar(Ellipsis));
    int32_t count = font.GetIndexAt(text, std::max(width - font.GetTextWidth(mark), 0));
    if (count > 0 && text[count - 1].IsHighSurrogate()) --count;
    return text.Substring(0, count) + mark;
}

}  // namespace

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
    MColor color;
    MFont* const font = drawer.GetFont(look.font, look.color, look.isInverted, look.drawState, color);
    if (!font || text.IsEmpty()) return {};
    return {MTextLayout::GetWidth(*font, text), MTextLayout::GetHeight(*font, text)};
}

void MListBoxItemBaseWithFeatures::PaintText(MDrawer& drawer, const MRect& rect, const MContentLook& look) {
    MColor color;
    MFont* const font = drawer.GetFont(look.font, look.color, look.isInverted, look.drawState, color);
    if (font)
        drawer.DrawText(rect, *font, Shorten(*font, text, rect.GetWidth()), color, MTextLeft | MTextMiddle);
}
