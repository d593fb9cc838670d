#include "ui/widgets/colors/MColorField.h"

#include "ui/control/kinds/MStdColor.h"
#include "ui/widgets/content/MHelpUsage.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double Hues = 360;

}  // namespace

MColorField::MColorField(MControl* parent, const MString& name, Kind kind)
    : MControl(parent, name), kind(kind) {
    SetControlType(MControlType::Edit);
    Set(MControlFlag::HotTrack);
}

void MColorField::SetColor(const MHSL& newColor) {
    color = newColor;
    Invalidate();
}

void MColorField::GetMinimalContentSize(int32_t& x, int32_t& y) {
    constexpr MPoint FieldSize{192, 128};
    constexpr int32_t StripWidth = 20;
    MStyle* const style = GetStyle();
    x = kind == Kind::Lightness ? StripWidth : FieldSize.x;
    y = FieldSize.y;
    if (!style) return;
    x = style->ScaleX(x);
    y = style->ScaleY(y);
}

MHSL MColorField::GetColorAt(MPointF place) const {
    MHSL at = color;
    if (kind == Kind::Lightness) {
        at.lightness = 1 - place.y;
    } else {
        // The hue that comes after the last one is the first one again.
        at.hue = std::min(place.x * Hues, Hues - 1);
        at.saturation = 1 - place.y;
    }
    return at;
}

MPointF MColorField::GetPlace() const {
    if (kind == Kind::Lightness) return {0.5, 1 - color.lightness};
    return {color.hue / Hues, 1 - color.saturation};
}

MPointF MColorField::GetPlaceOf(MPoint point) const {
    const auto share = [](int32_t distance, int32_t length) {
        return std::clamp(static_cast<double>(distance) / std::max(length - 1, 1), 0.0, 1.0);
    };
    return {share(point.x - clientRect.left, clientRect.GetWidth()),
            share(point.y - clientRect.top, clientRect.GetHeight())};
}

/// Once for a size, and a strip for a hue and a saturation.
void MColorField::DrawSurface() {
    const MPoint now{clientRect.GetWidth(), clientRect.GetHeight()};
    const bool isSameHue = kind == Kind::HueAndSaturation ||
                           (color.hue == surfaceColor.hue && color.saturation == surfaceColor.saturation);
    if (isSameHue && MPoint{surface.GetWidth(), surface.GetHeight()} == now) return;
    surfaceColor = color;
    surface.CreateOpaque(now.x, now.y);
    for (int32_t y = 0; y < now.y; ++y) {
        MColor* const row = surface.EditRow(y);
        for (int32_t x = 0; x < now.x; ++x) {
            MHSL at = GetColorAt(GetPlaceOf(clientRect.GetTopLeft() + MPoint{x, y}));
            if (kind == Kind::HueAndSaturation) at.lightness = 0.5;
            row[x] = MColor::FromHSL(at);
        }
    }
}

void MColorField::PaintContent(MDrawer& drawer) {
    MStyle* const style = GetStyle();
    if (!style || clientRect.IsEmpty()) return;
    DrawSurface();
    const uint8_t alpha = IsEnabled() ? 255 : style->GetDisabledAlpha(*this);
    drawer.BitBltWhole(surface, clientRect.GetTopLeft(), alpha, MDrawMode::Alphablend);

    constexpr int32_t MarkRadius = 5;
    const MPointF place = GetPlace();
    const MPointF middle{clientRect.left + place.x * (clientRect.GetWidth() - 1),
                         clientRect.top + place.y * (clientRect.GetHeight() - 1)};
    // One of the two is seen on any colour.
    const int32_t radius = style->ScaleX(MarkRadius);
    constexpr auto Text = static_cast<int32_t>(MStdColor::Text);
    drawer.Circle(middle, radius, style->GetColor(Text, false), MDrawMode::Alphablend);
    drawer.Circle(middle, radius - 1, style->GetColor(Text, true), MDrawMode::Alphablend);
}

void MColorField::Pick(MPointF place, Change change) {
    const MHSL before = color;
    SetColor(GetColorAt({std::clamp(place.x, 0.0, 1.0), std::clamp(place.y, 0.0, 1.0)}));
    const bool isOther = color.hue != before.hue || color.saturation != before.saturation ||
                         color.lightness != before.lightness;
    if (!isOther && change == Change::Intermediate) return;
    const MControlRef self(this);
    if (isOther) ExecuteOnChange();
    if (self) OnChange(change).Fire({this});
}

bool MColorField::ProcessEvent(const MSystemEvent& event) {
    const MPointF place = GetPlaceOf(GetOwnPoint(event.point));
    switch (event.type) {
    case MEventType::LeftDown: Pick(place, Change::Intermediate); return true;
    case MEventType::MouseMove:
        if (Is(MControlFlag::LeftDown)) Pick(place, Change::Intermediate);
        return true;
    case MEventType::LeftUp: Pick(place, Change::Committed); return true;
    case MEventType::KeyDown:
        if (ProcessKey(event)) return true;
        break;
    default: break;
    }
    return MControl::ProcessEvent(event);
}

bool MColorField::ProcessKey(const MSystemEvent& event) {
    constexpr double Step = 0.01;
    const double step = event.Has(MModifierControl) ? 10 * Step : Step;
    const MPointF place = GetPlace();
    switch (event.key) {
    case MKeyLeft: Pick({place.x - step, place.y}, Change::Committed); return true;
    case MKeyRight: Pick({place.x + step, place.y}, Change::Committed); return true;
    case MKeyUp: Pick({place.x, place.y - step}, Change::Committed); return true;
    case MKeyDown: Pick({place.x, place.y + step}, Change::Committed); return true;
    default: return false;
    }
}

void MColorField::WriteHelpInfo(MXMLItem& item) {
    MControl::WriteHelpInfo(item);
    constexpr const char* Entries[] = {"<control>Click/drag using left mouse button</control> and "
                                       "<control>arrow keys</control>, with Ctrl in larger steps, choose a "
                                       "color."};
    MWriteUsage(item, "", Entries);
}
