#include "foundation/xml/MXMLItem.h"
#include "ui/control/MXmlLoader.h"
#include "ui/control/kinds/MStdFont.h"
#include "ui/control/windows/MWindows.h"

namespace {

struct FlagAttribute {
    const char* name;
    MControlFlag flag;
};

constexpr FlagAttribute FlagAttributes[] = {
    {"tabstop", MControlFlag::TabStop},
    {"autodetectminimalsize", MControlFlag::AutoDetectMinimalSize},
    {"overlaycontrol", MControlFlag::OverlayControl},
    {"adaptsize", MControlFlag::AdaptSize},
    {"plastic", MControlFlag::Plastic},
    {"plasticadaptsize", MControlFlag::PlasticAdaptSize},
    {"collapsable", MControlFlag::Collapsable},
    {"layoutsaveratio", MControlFlag::LayoutSaveRatio},
    {"showhelp", MControlFlag::ShowHelp},
    {"useparenthelp", MControlFlag::UseParentHelp},
    {"closeonescape", MControlFlag::CloseOnEscape},
    {"movetoscreencenter", MControlFlag::MoveToScreenCenter},
    {"autosavestate", MControlFlag::AutoSaveState},
    {"savewindowpos", MControlFlag::SaveWindowPos},
    {"savewindowsize", MControlFlag::SaveWindowSize},
    {"enablesavestate", MControlFlag::EnableSaveState},
    {"savesubcontrolstate", MControlFlag::SaveSubControlState},
    {"savevalue", MControlFlag::SaveValue},
};

MPoint GetPoint(const MXMLItem& item, const char* x, const char* y, MPoint defaultValue) {
    return {item.GetInt32Attribute(x, defaultValue.x), item.GetInt32Attribute(y, defaultValue.y)};
}

}  // namespace

void MControl::LoadFromXml(MXMLItem& item) {
    name = item.GetAttribute("id", name);
    if (item.HasAttribute("visible")) SetVisible(item.GetInt32Attribute("visible") != 0);
    if (item.HasAttribute("controltype"))
        SetControlType(MValueEnum<MControlType>::FromName(item.GetCachedAttribute()));
    if (item.HasAttribute("enabled")) SetEnabled(item.GetInt32Attribute("enabled") != 0);
    if (item.HasAttribute("font"))
        SetFont(static_cast<int32_t>(MValueEnum<MStdFont>::FromName(item.GetCachedAttribute())));
    position = GetPoint(item, "posx", "posy", position);
    size = GetPoint(item, "sizex", "sizey", size);
    minClientSize = GetPoint(item, "minclientsizex", "minclientsizey", minClientSize);
    for (const auto& [attribute, flag] : FlagAttributes)
        if (item.HasAttribute(attribute)) Set(flag, item.GetInt32Attribute(attribute) != 0);
    if (item.HasAttribute("collapsed")) SetCollapsed(item.GetInt32Attribute("collapsed") != 0);
    layoutRatio = GetPoint(item, "layoutratiox", "layoutratioy", layoutRatio);
    layoutBorder = GetPoint(item, "layoutborderx", "layoutbordery", layoutBorder);
    if (parent && item.GetInt32Attribute("clientlayout", 0) != 0) parent->SetClientControl(this);
    if (item.HasAttribute("layoutplacement")) layoutPlacement = MParseAlignment(item.GetCachedAttribute());
    if (item.HasAttribute("caption")) SetCaption(item.GetCachedAttribute(), MCaptionType::Normal);
    if (item.HasAttribute("captiontype"))
        SetCaption(caption, MValueEnum<MCaptionType>::FromName(item.GetCachedAttribute()));
    help = item.GetAttribute("help", help);
    MXmlLoader::Get().Load(item, *this);
}
