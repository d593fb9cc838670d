#include "ui/widgets/content/MPanelGradient.h"

#include "ui/control/kinds/MStdColor.h"

namespace {

/// Paints in the colours of a target, the dark ones among them made light.
class DrawerOnBlack final : public MDrawer {
public:
    using MDrawer::MDrawer;

    [[nodiscard]] MFont* GetFont(int32_t fontIndex, int32_t colorIndex, bool isInverted, uint8_t drawState,
                                 MColor& color) override {
        MFont* const font = MDrawer::GetFont(fontIndex, colorIndex, isInverted, drawState, color);
        color = GetLight(color);
        return font;
    }
    [[nodiscard]] MColor GetTextColor(int32_t index, bool isInverted) override {
        return GetLight(MDrawer::GetTextColor(index, isInverted));
    }

private:
    static MColor GetLight(MColor color) {
        constexpr uint8_t Middle = 128;
        return color.GetLuminance() < Middle ? color.Inverted() : color;
    }
};

}  // namespace

MPanelGradient::MPanelGradient(MControl* parent, const MString& name) : MControlContent(parent, name) {
    SetControlType(MControlType::NoBackground);
    SetContentAlignment(MAlignLeft | MAlignBottom);
    Set(MControlFlag::TabStop, false);
}

MPoint MPanelGradient::GetContentBorder() {
    constexpr MPoint TextBorder{16, 8};
    MStyle* const style = GetStyle();
    if (!style || !dynamic_cast<MContentText*>(GetContent())) return {};
    return {style->ScaleX(TextBorder.x), style->ScaleY(TextBorder.y)};
}

void MPanelGradient::PaintContent(MDrawer& drawer) {
    constexpr uint8_t LightAlpha = 28;
    const MColor light =
        drawer.GetTextColor(static_cast<int32_t>(MStdColor::Text), GetContentLook().isInverted);
    drawer.FillRectangleGradient(windowRect, light.WithAlpha(0), light.WithAlpha(LightAlpha), direction,
                                 MDrawMode::Alphablend);
    MControlContent::PaintContent(drawer);
}

void MPanelGradientBlack::PaintContent(MDrawer& drawer) {
    drawer.FillRectangle(windowRect, GetBackgroundColor(), MDrawMode::Copy);
    DrawerOnBlack onBlack(&drawer);
    MPanelGradient::PaintContent(onBlack);
}
