#include "examples/product-pictures/Canvas.h"

#include "ui/text/MFont.h"
#include "ui/text/MTextLayout.h"

#include <algorithm>
#include <cmath>

namespace {

/// The threshold of a pixel, 0 to below 1: the matrix of 8 by 8 of Bayer (An optimum method for two-level
/// rendition of continuous-tone pictures, 1973).
double GetThreshold(int32_t x, int32_t y) {
    int32_t value = 0;
    for (int32_t bit = 0; bit < 3; ++bit) value = value << 2 | ((x ^ y) >> bit & 1) << 1 | (y >> bit & 1);
    return (value + 0.5) / 64;
}

}  // namespace

Light Light::Of(uint32_t color, double opacity) {
    return {(color >> 16) / 255.0, (color >> 8 & 255) / 255.0, (color & 255) / 255.0, opacity};
}

Light Light::Toward(const Light& other, double way) const {
    const double share = std::clamp(way, 0.0, 1.0);
    const auto mix = [&](double from, double to) { return from + (to - from) * share; };
    return {mix(red, other.red), mix(green, other.green), mix(blue, other.blue), mix(opacity, other.opacity)};
}

Canvas::Canvas(double width, double height, double scale)
    : scale(scale),
      width(static_cast<int32_t>(std::lround(width * scale))),
      height(static_cast<int32_t>(std::lround(height * scale))),
      pixels(static_cast<size_t>(this->width) * static_cast<size_t>(this->height)) {}

double Canvas::Cover(double distance) const {
    return std::clamp(0.5 - distance * scale, 0.0, 1.0);
}

void Canvas::Lay(int32_t x, int32_t y, const Light& light) {
    Light& ground = At(x, y);
    const double opacity = light.opacity + ground.opacity * (1 - light.opacity);
    if (opacity <= 0) return;
    const double share = light.opacity / opacity;
    ground = ground.Toward({light.red, light.green, light.blue, ground.opacity}, share);
    ground.opacity = opacity;
}

void Canvas::PaintBox(double left, double top, double right, double bottom, const Light& light) {
    for (auto y = static_cast<int32_t>(std::lround(top * scale)); y < std::lround(bottom * scale); ++y)
        for (auto x = static_cast<int32_t>(std::lround(left * scale)); x < std::lround(right * scale); ++x)
            Lay(x, y, light);
}

double Canvas::Write(MFont& font, double size, MPointF place, const MString& text, const Light& light) {
    font.SetSize(-std::round(size * scale));
    const auto left = static_cast<int32_t>(std::lround(place.x * scale));
    const auto top = static_cast<int32_t>(std::lround(place.y * scale)) - font.GetAscent();
    MTextLayout layout(font, text, {left, top, width - 1, height - 1}, MTextLeft | MTextTop);
    for (MPlacedGlyph glyph; layout.TakeGlyph(glyph);)
        for (int32_t y = 0; y < glyph.mask->GetHeight(); ++y)
            for (int32_t x = 0; x < glyph.mask->GetWidth(); ++x)
                Lay(glyph.point.x + x, glyph.point.y + y, light.Times(glyph.mask->GetRow(y)[x] / 255.0));
    return place.x + font.GetTextWidth(text) / scale;
}

MBitmap Canvas::MakeBitmap() const {
    MBitmap bitmap(width, height);
    for (int32_t y = 0; y < height; ++y) {
        MColor* const row = bitmap.EditRow(y);
        for (int32_t x = 0; x < width; ++x) {
            const Light& light = pixels[static_cast<size_t>(y) * width + x];
            const auto round = [](double value, double threshold) {
                return static_cast<uint8_t>(std::clamp(value * 255 + threshold, 0.0, 255.0));
            };
            const double threshold = GetThreshold(x, y);
            row[x] = MColor::FromRGB(round(light.red, threshold), round(light.green, threshold),
                                     round(light.blue, threshold), round(light.opacity, 0.5));
        }
    }
    return bitmap;
}

double Ease(double from, double to, double place) {
    const double way = std::clamp((place - from) / (to - from), 0.0, 1.0);
    return way * way * (3 - 2 * way);
}
