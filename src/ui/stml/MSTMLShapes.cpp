#include "ui/stml/MSTMLShapes.h"

#include "ui/control/kinds/MStdColor.h"
#include "ui/stml/MSTMLAttributes.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr MSTMLColor StyleColor(MStdColor color) {
    return {static_cast<int32_t>(color), MSTMLColor::Transparent};
}

}  // namespace

MSTMLLine::MSTMLLine(const MSTMLAttributes& attributes)
    : size(attributes.GetSpace("size", 1)),
      color(attributes.GetColor("color", StyleColor(MStdColor::Shape))),
      alpha(attributes.GetByte("alpha", 200)),
      hspace(attributes.GetSpace("hspace", 6)),
      vspace(attributes.GetSpace("vspace", 6)) {
    SetWidth({MSTMLLength::Kind::Percent, 100});
    Read(attributes);
}

MSTMLLine* MSTMLLine::Clone() const {
    return new MSTMLLine(*this);
}

MPoint MSTMLLine::GetNaturalSize(MSTMLContext& context) {
    return {1 + 2 * context.drawer.ScaleX(hspace),
            GetThickness(context.drawer) + 2 * context.drawer.ScaleY(vspace)};
}

int32_t MSTMLLine::GetThickness(MDrawer& drawer) const {
    return size > 0 ? std::max(1, drawer.ScaleY(size)) : 0;
}

void MSTMLLine::PaintObject(MSTMLContext& context, const MRect& rect, bool isInverted) {
    const MColor ink = color.Get(context.drawer, isInverted);
    const int32_t thickness = GetThickness(context.drawer);
    const int32_t space = context.drawer.ScaleX(hspace);
    const int32_t top = rect.top + (rect.GetHeight() - thickness) / 2;
    const MRect line = {rect.left + space, top, rect.right - space, top + thickness - 1};
    context.drawer.FillRectangle(line, ink.WithAlpha(static_cast<uint8_t>(ink.alpha * alpha / 255)),
                                 MDrawMode::Overlay);
}

MSTMLRectangle::MSTMLRectangle(const MSTMLAttributes& attributes)
    : color(attributes.GetColor("color")), borderColor(attributes.GetColor("bordercolor")) {
    Read(attributes);
}

MSTMLRectangle* MSTMLRectangle::Clone() const {
    return new MSTMLRectangle(*this);
}

void MSTMLRectangle::PaintObject(MSTMLContext& context, const MRect& rect, bool isInverted) {
    const MColor fill = color.Get(context.drawer, isInverted);
    const MColor border = borderColor.Get(context.drawer, isInverted);
    if (fill.alpha > 0) context.drawer.FillRectangle(rect, fill, MDrawMode::Overlay);
    if (border.alpha > 0) context.drawer.Rectangle(rect, border, MDrawMode::Overlay);
}

MSTMLIndicator::MSTMLIndicator(const MSTMLAttributes& attributes)
    : color(attributes.GetColor("color", StyleColor(MStdColor::Shape))),
      borderColor(attributes.GetColor("bordercolor", StyleColor(MStdColor::Text))),
      value(attributes.GetNumber("value", 0)),
      min(attributes.GetNumber("min", 0)),
      max(attributes.GetNumber("max", 1)),
      middle(attributes.GetNumber("middle", 0)) {
    Read(attributes);
}

MSTMLIndicator* MSTMLIndicator::Clone() const {
    return new MSTMLIndicator(*this);
}

int32_t MSTMLIndicator::GetPlace(double place, int32_t width) const {
    const double share = max == min ? 0 : (place - min) / (max - min);
    return share > 0 ? static_cast<int32_t>(std::lround(std::min(share, 1.0) * width)) : 0;
}

void MSTMLIndicator::PaintObject(MSTMLContext& context, const MRect& rect, bool isInverted) {
    const MColor border = borderColor.Get(context.drawer, isInverted);
    if (border.alpha > 0) context.drawer.Rectangle(rect, border, MDrawMode::Overlay);
    const MRect inner = border.alpha > 0 ? rect.Shrunk(1, 1) : rect;
    if (inner.IsEmpty()) return;
    const int32_t first = GetPlace(middle, inner.GetWidth());
    const int32_t second = GetPlace(value, inner.GetWidth());
    const MRect bar = {inner.left + std::min(first, second), inner.top,
                       inner.left + std::max(first, second) - 1, inner.bottom};
    context.drawer.FillRectangle(bar, color.Get(context.drawer, isInverted), MDrawMode::Overlay);
}
