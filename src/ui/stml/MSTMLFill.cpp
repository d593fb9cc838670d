#include "ui/stml/MSTMLFill.h"

#include "ui/control/kinds/MStdColor.h"
#include "ui/drawing/MDrawer.h"
#include "ui/stml/MSTMLAttributes.h"

namespace {

MColor GetTextColor(MDrawer& drawer, bool isInverted) {
    return drawer.GetTextColor(static_cast<int32_t>(MStdColor::Text), isInverted);
}

}  // namespace

void MSTMLFill::Read(const MSTMLAttributes& attributes) {
    invert = attributes.GetBool("invert");
    fillAlpha = attributes.GetByte("fillalpha", 0);
    fillColor = attributes.GetColor("fill");
}

bool MSTMLFill::PaintFill(MDrawer& drawer, const MRect& rect, bool isInverted, int32_t border,
                          uint8_t borderAlpha) const {
    if (rect.IsEmpty()) return isInverted != invert;
    if (invert) {
        drawer.FillRectangle(rect, GetTextColor(drawer, isInverted), MDrawMode::Overlay);
        isInverted = !isInverted;
    } else {
        const MColor color = GetTextColor(drawer, isInverted).WithAlpha(borderAlpha);
        MRect outline = rect;
        for (int32_t i = 0; i < border && !outline.IsEmpty(); ++i, outline = outline.Shrunk(1, 1))
            drawer.Rectangle(outline, color, MDrawMode::Overlay);
    }
    if (fillAlpha > 0)
        drawer.FillRectangle(rect, GetTextColor(drawer, isInverted).WithAlpha(fillAlpha), MDrawMode::Overlay);
    else if (const MColor color = fillColor.Get(drawer, isInverted); color.alpha > 0)
        drawer.FillRectangle(rect, color, MDrawMode::Overlay);
    return isInverted;
}
