// Knobs, rotators, trackers and progress bars: what they show of a value.

#include "ui/control/MControl.h"
#include "ui/drawing/MClipScope.h"
#include "ui/style/MTexturedStyle.h"
#include "ui/style/images/MArc.h"
#include "ui/style/images/MImageContext.h"

#include <algorithm>
#include <cmath>

namespace {

int32_t Round(double value) {
    return static_cast<int32_t>(std::floor(value + 0.5));
}

double Cut(double value) {
    return std::isfinite(value) ? std::clamp(value, 0.0, 1.0) : 0.0;
}

/// The places of a tracker's thumb, along the way from the least value to the greatest.
struct Track {
    MRect rect;         ///< of the way, between the ends of the thumb at both ends
    int32_t thumb = 0;  ///< length of the thumb
    bool isVertical = false;

    [[nodiscard]] int32_t GetLength() const {
        return std::max((isVertical ? rect.GetHeight() : rect.GetWidth()) - thumb, 1);
    }
    /// The first pixel of the thumb, in the direction of the values.
    [[nodiscard]] MRect GetThumb(double value) const {
        const int32_t place = Round(Cut(value) * GetLength());
        MRect result = rect;
        if (isVertical) {
            result.bottom = rect.bottom - place;
            result.top = result.bottom - thumb + 1;
        } else {
            result.left = rect.left + place;
            result.right = result.left + thumb - 1;
        }
        return result;
    }
};

Track GetTrack(const MRect& rect, MClassLook& look, MStyleScale scale) {
    const ControlStyle* const selector = look.Find(MStylePiece::Selector);
    const int32_t border = selector ? scale.GetLine(selector->focusBorder) : 0;
    Track track;
    track.rect = rect.Shrunk(border, border);
    track.isVertical = rect.GetHeight() > rect.GetWidth();
    track.thumb = selector ? scale.GetX(selector->GetSize().x) : 1;
    return track;
}

}  // namespace

void MTexturedStyle::PaintValue(MControl& control, MDrawer& drawer, const MRect& rect,
                                const MValueLook& look) {
    switch (control.GetControlType()) {
    case MControlType::Knob: return PaintDial(MStyleClass::Knob, drawer, rect, look);
    case MControlType::Rotator: return PaintDial(MStyleClass::Rotator, drawer, rect, look);
    case MControlType::Tracker: return PaintTracker(control, drawer, rect, look);
    default: return PaintProgress(control, drawer, rect, look);
    }
}

void MTexturedStyle::PaintDial(MStyleClass styleClass, MDrawer& drawer, const MRect& rect,
                               const MValueLook& value) {
    MClipScope clip(drawer);
    if (clip.Intersect(rect)) return;
    MClassLook& look = GetLook(styleClass);
    ControlStyle& dial = look.GetImage();
    const MStyleScale scale = GetScale();
    const int32_t border = scale.GetLine(dial.focusBorder);
    // A square in the middle, so that centre and circles lie alike to all sides.
    const int32_t side = std::min(rect.GetWidth(), rect.GetHeight());
    const MRect square = MRect::FromSize(rect.left + (rect.GetWidth() - side) / 2,
                                         rect.top + (rect.GetHeight() - side) / 2, side, side);
    const MPointF center{square.left + (side - 1) / 2.0, square.top + (side - 1) / 2.0};
    const bool isEnabled = value.drawState & MDrawEnabled;
    const auto fade = [&](MColor color) {
        return isEnabled ? color : color.WithAlpha(static_cast<uint8_t>(color.alpha * 2 / 5));
    };

    const double base = look.GetNumber("baseangle", 135);
    const double sweep = look.GetNumber("anglerange", 270);
    const int32_t width = scale.GetLine(look.GetNumber("arcwidth", 4));
    const double radius = side / 2.0 - border;
    const auto paintArc = [&](double from, double to, MColor color) {
        if (from > to) std::swap(from, to);
        if (to - from < 1e-6) return;
        const MOutlines::Outline arc[] = {
            MArc::GetBand(center, radius, width, base + sweep * from, base + sweep * to)};
        drawer.FillOutlines(arc, fade(color), MDrawMode::Alphablend);
    };
    const double position = Cut(value.value);
    const MStyleColors& colors = GetColors();
    paintArc(0, 1, colors.Get(MStyleTone::Groove));
    paintArc(value.maxValue ? position : Cut(value.origin), value.maxValue ? Cut(*value.maxValue) : position,
             colors.Get(MStyleTone::Accent));

    dial.Paint(drawer, square, value.drawState, GetContext());
    if (look.GetNumber("enablevaluebutton", 0) != 0)
        PaintAround(look, MStylePiece::ValueButton, drawer,
                    {center.x + scale.GetX(look.GetNumber("valuebuttonoffsetx", 0)),
                     center.y + scale.GetY(look.GetNumber("valuebuttonoffsety", 0))},
                    GetPieceSize(look, MStylePiece::ValueButton), value.drawState);
    if (look.GetNumber("enablepointer", 1) == 0) return;
    const int32_t ratio = look.GetNumber("selectorratio", 80);
    const double face = radius - width - scale.GetLine(look.GetNumber("arcspace", 2));
    const auto paintPointer = [&](double at) {
        const MPointF direction = MArc::GetDirection(base + sweep * at);
        const auto place = [&](double distance) {
            return MPointF{center.x + direction.x * distance, center.y + direction.y * distance};
        };
        if (look.Find(MStylePiece::Selector))
            return PaintAround(look, MStylePiece::Selector, drawer, place(face * ratio / 100),
                               GetPieceSize(look, MStylePiece::Selector), value.drawState);
        const MOutlines::Outline pointer[] = {MArc::GetPen(
            place(face * ratio / 250), place(face * ratio / 100), scale.GetSmaller() * 2.5 / 100)};
        drawer.FillOutlines(pointer, fade(colors.Get(MStyleTone::Text)), MDrawMode::Alphablend);
    };
    paintPointer(position);
    if (value.maxValue) paintPointer(Cut(*value.maxValue));
}

double MTexturedStyle::GetTrackerPosition(MControl& control, MPoint point) {
    const MRect all = MRect::FromSize(0, 0, control.GetShownSize().x, control.GetShownSize().y);
    const Track track = GetTrack(all, GetLook(MStyleClass::Tracker), GetScale());
    const int32_t half = track.thumb / 2;
    const double place =
        track.isVertical ? track.rect.bottom - half - point.y : point.x - track.rect.left - half;
    return Cut(place / track.GetLength());
}

MRect MTexturedStyle::GetTrackerRect(MControl& control, double value) {
    const MRect all = MRect::FromSize(0, 0, control.GetShownSize().x, control.GetShownSize().y);
    return GetTrack(all, GetLook(MStyleClass::Tracker), GetScale()).GetThumb(value);
}

void MTexturedStyle::PaintTracker(MControl&, MDrawer& drawer, const MRect& rect, const MValueLook& value) {
    MClipScope clip(drawer);
    if (clip.Intersect(rect)) return;
    MClassLook& look = GetLook(MStyleClass::Tracker);
    const MStyleScale scale = GetScale();
    const Track track = GetTrack(rect, look, scale);
    // The groove runs between the middles of the thumb at both ends.
    const int32_t border = look.GetNumber("bordersize", 4);
    const auto getGroove = [&](double from, double to, int32_t width) {
        const int32_t thickness = scale.GetLine(width);
        const MRect a = track.GetThumb(from);
        const MRect b = track.GetThumb(to);
        const int32_t half = (track.thumb - thickness) / 2;
        MRect groove = a.United(b);
        if (track.isVertical) {
            const int32_t x = track.rect.left + (track.rect.GetWidth() - thickness) / 2;
            groove = {x, groove.top + half, x + thickness - 1, groove.bottom - half};
        } else {
            const int32_t y = track.rect.top + (track.rect.GetHeight() - thickness) / 2;
            groove = {groove.left + half, y, groove.right - half, y + thickness - 1};
        }
        return groove;
    };
    const double position = Cut(value.value);
    const double end = value.maxValue ? Cut(*value.maxValue) : Cut(value.origin);
    PaintPiece(look, MStylePiece::Image, drawer, rect, value.drawState);
    PaintPiece(look, MStylePiece::Off, drawer, getGroove(0, 1, border), value.drawState);
    if (position != end)
        PaintPiece(look, MStylePiece::On, drawer,
                   getGroove(std::min(position, end), std::max(position, end),
                             look.GetNumber("valuebordersize", border)),
                   value.drawState);
    const auto getMiddle = [](const MRect& area) {
        return MPointF{(area.left + area.right) / 2.0, (area.top + area.bottom) / 2.0};
    };
    if (look.GetNumber("enablevaluebutton", 0) != 0)
        PaintAround(look, MStylePiece::ValueButton, drawer, getMiddle(rect),
                    GetPieceSize(look, MStylePiece::ValueButton), value.drawState);
    if (look.GetNumber("enablepointer", 0) != 0) {
        MPoint size = GetPieceSize(look, MStylePiece::Pointer);
        if (look.GetNumber("resizepointerx", 0) != 0) size.x = rect.GetWidth();
        if (look.GetNumber("resizepointery", 0) != 0) size.y = rect.GetHeight();
        PaintAround(look, MStylePiece::Pointer, drawer, getMiddle(track.GetThumb(position)), size,
                    value.drawState);
    }
    const auto paintThumb = [&](double at) {
        const MRect thumb = track.GetThumb(at);
        const ControlStyle* const selector = look.Find(MStylePiece::Selector);
        const int32_t inset = selector ? scale.GetLine(selector->focusBorder) : 0;
        // A round thumb stays round whatever room the control has.
        const int32_t across = track.isVertical ? thumb.GetWidth() : thumb.GetHeight();
        const int32_t spare = std::max((across - track.thumb) / 2, 0);
        const MRect square = track.isVertical ? thumb.Shrunk(spare, 0) : thumb.Shrunk(0, spare);
        for (const MStylePiece piece : {MStylePiece::Selector, MStylePiece::SelectorOverlay})
            PaintPiece(look, piece, drawer, square.Shrunk(-inset, -inset), value.drawState);
    };
    paintThumb(position);
    if (value.maxValue) paintThumb(end);
}

void MTexturedStyle::PaintProgress(MControl&, MDrawer& drawer, const MRect& rect, const MValueLook& value) {
    MClassLook& look = GetLook(MStyleClass::ProgressBar);
    MRect done = rect;
    const int32_t length = Round(Cut(value.value) * rect.GetWidth());
    if (length < 1) return;
    done.right = done.left + length - 1;
    const bool isDark = !GetColors().IsInverted() && look.Find(MStylePiece::LocatorDark);
    PaintPiece(look, isDark ? MStylePiece::LocatorDark : MStylePiece::Locator, drawer, done, value.drawState);
}
