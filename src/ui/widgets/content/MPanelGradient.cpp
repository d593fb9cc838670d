#include "ui/widgets/content/MPanelGradient.h"

#include "ui/control/kinds/MStdColor.h"

namespace {

MColor GetTextColor(MControl& control, bool isInverted) {
    MStyle* const style = control.GetStyle();
    return style ? style->GetColor(static_cast<int32_t>(MStdColor::Text), isInverted) : MColor();
}

}  // namespace

MPanelGradient::MPanelGradient(MControl* parent, const MString& name) : MControlContent(parent, name) {
    SetControlType(MControlType::Panel);
    SetContentAlignment(MAlignLeft | MAlignBottom);
    Set(MControlFlag::TabStop, false);
}

void MPanelGradient::PaintContent(MDrawer& drawer) {
    constexpr uint8_t LightAlpha = 28;
    const MColor ground = GetGround();
    if (ground.alpha != 0) drawer.FillRectangle(windowRect, ground, MDrawMode::Copy);
    const MColor light = GetTextColor(*this, GetContentLook().isInverted);
    drawer.FillRectangleGradient(windowRect, light.WithAlpha(0), light.WithAlpha(LightAlpha), direction,
                                 MDrawMode::Alphablend);
    MControlContent::PaintContent(drawer);
}

MContentLook MPanelGradientBlack::GetContentLook() {
    MContentLook look = MPanelGradient::GetContentLook();
    look.isInverted = GetTextColor(*this, true).GetLuminance() > GetTextColor(*this, false).GetLuminance();
    return look;
}
