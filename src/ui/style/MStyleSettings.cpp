#include "foundation/base/MGuard.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/xml/MXMLItem.h"
#include "ui/style/MBaseStyle.h"

namespace {

/// How a colour stands in the settings: alpha first, as the user may know it from elsewhere.
MString ToARGB(MColor color) {
    const MString text = color.GetText();
    return text.Substring(6, 2) + text.Substring(0, 6);
}

MColor FromARGB(const MString& text) {
    return MColor::Parse(text.Substring(2) + text.Substring(0, 2));
}

/// The first colour has no number.
MString GetColorKey(size_t index) {
    return index == 0 ? MString("MainColor") : MFormat("MainColor{0}", index);
}

}  // namespace

void MStyleSettings::Load(MXMLItem& item) {
    style = item.GetAttribute("Style", style);
    const auto readNumber = [&](const char* attribute, std::optional<int32_t>& value) {
        if (item.HasAttribute(attribute)) value = item.GetInt32Attribute(attribute);
    };
    readNumber("ResizeX", resizeX);
    readNumber("ResizeY", resizeY);
    if (item.HasAttribute("InvertColors")) invertColors = item.GetInt32Attribute("InvertColors") != 0;
    enableUpperCase = item.GetInt32Attribute("EnableUpperCase", enableUpperCase) != 0;
    setDefaultColors = item.GetInt32Attribute("SetDefaultColors", setDefaultColors) != 0;
    colorScheme = item.GetAttribute("ColorScheme", colorScheme);
    for (size_t i = 0; i < mainColors.size(); ++i) {
        const MString text = item.GetAttribute(GetColorKey(i), "FFFFFFFF");
        if (!MGuard("Load style settings", [&] { mainColors[i] = FromARGB(text); })) setDefaultColors = true;
    }
}

void MStyleSettings::Save(MXMLItem& item) const {
    item.SetAttribute("Style", style);
    if (resizeX) item.SetAttribute("ResizeX", *resizeX);
    if (resizeY) item.SetAttribute("ResizeY", *resizeY);
    if (invertColors) item.SetAttribute("InvertColors", *invertColors ? 1 : 0);
    item.SetAttribute("EnableUpperCase", enableUpperCase ? 1 : 0);
    item.SetAttribute("SetDefaultColors", setDefaultColors ? 1 : 0);
    item.SetAttribute("ColorScheme", colorScheme);
    for (size_t i = 0; i < mainColors.size(); ++i) item.SetAttribute(GetColorKey(i), ToARGB(mainColors[i]));
}
