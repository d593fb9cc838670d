#pragma once

#include "ui/geometry/MRect.h"
#include "ui/image/MBitmap.h"

#include <vector>

class MFont;

/// A colour between those of a screen, each channel from 0 to 1, and how much of it there is.
struct Light {
    double red = 0;
    double green = 0;
    double blue = 0;
    double opacity = 0;

    /// From six hexadecimal digits, as in 0xF0A03A.
    [[nodiscard]] static Light Of(uint32_t color, double opacity = 1);
    /// The colour on the way from this one to another, 0 to 1; beyond the ends it is theirs.
    [[nodiscard]] Light Toward(const Light& other, double way) const;
    /// With so much less of it.
    [[nodiscard]] Light Times(double factor) const { return {red, green, blue, opacity * factor}; }
};

/// A picture of light. Lengths are in units, of which each has `scale` pixels. Slow gradients on dark grounds show
/// steps in 256 shades, so the picture is rounded to them only at the end, by a pattern that hides the steps.
class Canvas {
public:
    Canvas(double width, double height, double scale);

    /// Lays what `shade` gives for the middle of each pixel, `Light(MPointF place)`, over what is there.
    template <class Shade>
    void Paint(Shade shade) {
        for (int32_t y = 0; y < height; ++y)
            for (int32_t x = 0; x < width; ++x)
                Lay(x, y, shade(MPointF{(x + 0.5) / scale, (y + 0.5) / scale}));
    }
    /// Fills rectangles of whole units, whose right and lower edges belong to the next ones.
    void PaintBox(double left, double top, double right, double bottom, const Light& light);
    /// Writes one line whose baseline is at `place`, in a size in units. Returns where the next one begins.
    double Write(MFont& font, double size, MPointF place, const MString& text, const Light& light);
    /// How much of a pixel lies inside of an edge; a distance in units is above 0 outside of it.
    [[nodiscard]] double Cover(double distance) const;
    /// Lets the whole picture fade, by `double(MPointF place)`, 0 for nothing left.
    template <class Share>
    void Fade(Share share) {
        for (int32_t y = 0; y < height; ++y)
            for (int32_t x = 0; x < width; ++x)
                At(x, y).opacity *= share(MPointF{(x + 0.5) / scale, (y + 0.5) / scale});
    }

    [[nodiscard]] MBitmap MakeBitmap() const;

private:
    [[nodiscard]] Light& At(int32_t x, int32_t y) { return pixels[static_cast<size_t>(y) * width + x]; }
    void Lay(int32_t x, int32_t y, const Light& light);

    double scale;
    int32_t width;
    int32_t height;
    std::vector<Light> pixels;
};

/// From 0 at one place to 1 at another, slowly at both.
[[nodiscard]] double Ease(double from, double to, double place);
