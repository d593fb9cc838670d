#include "examples/product-pictures/ProductPictures.h"

#include "examples/product-pictures/Canvas.h"
#include "foundation/text/MString.h"

#include <algorithm>
#include <cmath>

namespace {

const Light Accent = Light::Of(0xF0A03A);

double GetDistance(MPointF one, MPointF other) {
    return std::hypot(one.x - other.x, one.y - other.y);
}

/// How far a place is from the line between two others.
double GetLineDistance(MPointF place, MPointF from, MPointF to) {
    const MPointF line{to.x - from.x, to.y - from.y};
    const double way =
        ((place.x - from.x) * line.x + (place.y - from.y) * line.y) / (line.x * line.x + line.y * line.y);
    const double share = std::clamp(way, 0.0, 1.0);
    return GetDistance(place, {from.x + line.x * share, from.y + line.y * share});
}

/// A place around a knob; `turn` is 0 at its lowest value and 1 at its highest, as far again beyond the lower right.
MPointF GetPlaceAround(MPointF center, double radius, double turn) {
    const double angle = (0.75 + 1.5 * turn) * std::acos(-1.0);
    return {center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)};
}

/// How far a place is from the arc around a knob, up to a turn.
double GetArcDistance(MPointF place, MPointF center, double radius, double turn) {
    const double pi = std::acos(-1.0);
    double angle = std::atan2(place.y - center.y, place.x - center.x) - 0.75 * pi;
    while (angle < 0) angle += 2 * pi;
    if (angle <= 1.5 * pi * turn) return std::abs(GetDistance(place, center) - radius);
    return std::min(GetDistance(place, GetPlaceAround(center, radius, 0)),
                    GetDistance(place, GetPlaceAround(center, radius, turn)));
}

void DrawKnob(Canvas& canvas, MPointF center, double turn) {
    constexpr double RingRadius = 34;
    constexpr double RingHalf = 1.5;
    constexpr double SkirtRadius = 26;
    constexpr double CapRadius = 20.5;
    const auto ring = [&](MPointF place, double end) {
        return GetArcDistance(place, center, RingRadius, end);
    };
    canvas.Paint([&](MPointF place) {
        return Light::Of(0x000000, 0.6 * (1 - Ease(20, 37, GetDistance(place, {center.x, center.y + 6}))));
    });
    canvas.Paint(
        [&](MPointF place) { return Light::Of(0x39434F).Times(canvas.Cover(ring(place, 1) - RingHalf)); });
    canvas.Paint([&](MPointF place) { return Accent.Times(0.22 * (1 - Ease(0, 7, ring(place, turn)))); });
    canvas.Paint([&](MPointF place) { return Accent.Times(canvas.Cover(ring(place, turn) - RingHalf)); });
    canvas.Paint([&](MPointF place) {
        return Light::Of(0x07090B).Times(canvas.Cover(GetDistance(place, center) - SkirtRadius - 1));
    });
    canvas.Paint([&](MPointF place) {
        const double way = (place.y - center.y + SkirtRadius) / (2 * SkirtRadius);
        return Light::Of(0x4A5663)
            .Toward(Light::Of(0x15191E), std::sqrt(std::max(way, 0.0)))
            .Times(canvas.Cover(GetDistance(place, center) - SkirtRadius));
    });
    canvas.Paint([&](MPointF place) {
        return Light::Of(0x0A0C0F, 0.55)
            .Times(1 - Ease(CapRadius - 1, CapRadius + 2.5, GetDistance(place, {center.x, center.y + 1})));
    });
    canvas.Paint([&](MPointF place) {
        const double way = GetDistance(place, {center.x - 6, center.y - 11}) / 32;
        return Light::Of(0x596674)
            .Toward(Light::Of(0x1D232A), way)
            .Times(canvas.Cover(GetDistance(place, center) - CapRadius));
    });
    // The light on the upper edge of the cap.
    canvas.Paint([&](MPointF place) {
        const double edge = canvas.Cover(std::abs(GetDistance(place, center) - CapRadius + 0.5) - 0.5);
        return Light::Of(0xFFFFFF, 0.28).Times(edge * Ease(-2, -CapRadius, place.y - center.y));
    });
    const MPointF inner = GetPlaceAround(center, 8, turn);
    const MPointF outer = GetPlaceAround(center, 16.5, turn);
    canvas.Paint([&](MPointF place) {
        return Accent.Times(canvas.Cover(GetLineDistance(place, inner, outer) - RingHalf));
    });
}

}  // namespace

MBitmap DrawBand(MFont& font, int32_t percent) {
    constexpr double Width = 750;
    constexpr double Height = 64;
    constexpr double Middle = Height / 2;
    constexpr MPointF NamePlace{16, 47};
    constexpr double NameSize = 27;
    Canvas canvas(Width, Height, percent / 100.0);
    canvas.Paint([&](MPointF place) {
        const double way = (place.x - place.y * 0.18) / Width;
        return Light::Of(0x0C0F13).Toward(Light::Of(0x1F2731), way / 0.8);
    });
    canvas.Paint([&](MPointF place) {
        const double far = std::hypot((place.x - 590) / 230, (place.y - Middle) / 110);
        return Light::Of(0x4A5B6D, 0.36 * (1 - Ease(0, 1, far)));
    });
    for (int32_t bar = 0; bar < 52; ++bar) {
        const double left = 432 + bar * 6;
        const double half =
            std::round(2 + 21 * std::abs(std::cos((bar - 28) * 0.31) * std::cos((bar - 28) * 0.11 - 0.3)));
        canvas.PaintBox(left, Middle - half, left + 2, Middle + half,
                        Accent.Times(0.85 * Ease(420, 600, left)));
    }
    const Light ink = Light::Of(0xF2F5F9);
    double next = canvas.Write(font, NameSize, NamePlace, "Corvanth Plug", ink);
    next = canvas.Write(font, NameSize, {next, NamePlace.y}, "-", Accent);
    canvas.Write(font, NameSize, {next, NamePlace.y}, "in Set", ink);
    canvas.Fade([&](MPointF place) { return 1 - Ease(500, Width, place.x); });
    return canvas.MakeBitmap();
}

MBitmap DrawLeftPicture(int32_t percent) {
    constexpr double Width = 132;
    constexpr double Height = 288;
    Canvas canvas(Width, Height, percent / 100.0);
    canvas.Paint(
        [&](MPointF place) { return Light::Of(0x1A2027).Toward(Light::Of(0x0F1216), place.y / Height); });
    const double turns[] = {0.2, 0.68, 0.86};
    for (int32_t knob = 0; knob < 3; ++knob) DrawKnob(canvas, {Width / 2, 66 + knob * 82.0}, turns[knob]);
    return canvas.MakeBitmap();
}
