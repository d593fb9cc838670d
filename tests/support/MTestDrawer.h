#pragma once

#include "foundation/files/MFile.h"
#include "ui/control/kinds/MStdColor.h"
#include "ui/control/kinds/MStdFont.h"
#include "ui/control/kinds/MStdIcon.h"
#include "ui/control/kinds/MStyleMetric.h"
#include "ui/drawing/MDrawerToMBitmap.h"
#include "ui/text/MFont.h"
#include "ui/text/MFontSubstitutes.h"

#include <array>
#include <cmath>
#include <memory>

/// A drawer with a plain style: fonts of a folder of Debian's ("/usr/share/fonts/truetype"), colours on dark
/// ground, a square for each icon, and in place of other fonts DejaVu Sans.
class MTestDrawer : public MDrawerToMBitmap {
public:
    static constexpr int32_t FontCount = 8;
    static constexpr int32_t IconSize = 10;

    /// Files and sizes are those of `MStdFont`.
    explicit MTestDrawer(const MString& fontFolder) : MTestDrawer() {
        constexpr const char* Names[FontCount] = {"Regular", "Bold", "Italic", "Regular",
                                                  "Bold",    "Bold", "Bold",   "Bold"};
        MList<MString> paths;
        paths.Add(MFile::Join(fontFolder, "dejavu/DejaVuSans.ttf"));
        substitutes = std::make_unique<MFontSubstitutes>(paths);
        for (int32_t i = 0; i < FontCount; ++i) {
            fonts[i].LoadFromFile(
                MFile::Join(fontFolder, MString("liberation/LiberationSans-") + Names[i] + ".ttf"));
            fonts[i].SetSubstitutes(substitutes.get());
        }
        SetScale(100);
    }
    /// With one file for all fonts, at one size in pixels.
    MTestDrawer(const MString& fontPath, int32_t size) : MTestDrawer() {
        for (MFont& font : fonts) {
            font.LoadFromFile(fontPath);
            font.SetSize(-size);
        }
    }

    /// Of lengths and of the fonts of a folder, in percent.
    void SetScale(int32_t newScale) {
        constexpr int32_t Sizes[FontCount] = {13, 13, 13, 10, 15, 17, 20, 54};
        scale = newScale;
        for (int32_t i = 0; i < FontCount; ++i) fonts[i].SetSize(std::lround(-Sizes[i] * scale / 100.0));
    }

    [[nodiscard]] MBitmap* GetStdIcon(int32_t) override { return &icon; }
    [[nodiscard]] MBitmap* GetStdBitmap(int32_t) override { return nullptr; }
    [[nodiscard]] MFont* GetFont(int32_t fontIndex, int32_t colorIndex, bool isInverted, uint8_t,
                                 MColor& color) override {
        color = GetTextColor(colorIndex, isInverted);
        return &fonts[fontIndex];
    }
    [[nodiscard]] MColor GetTextColor(int32_t index, bool isInverted) override {
        constexpr MColor Colors[] = {MColor::FromRGB(230, 235, 240), MColor::FromRGB(140, 150, 165),
                                     MColor::FromRGB(240, 110, 100), MColor::FromRGB(120, 200, 130),
                                     MColor::FromRGB(110, 160, 240)};
        return isInverted ? Colors[index].Inverted() : Colors[index];
    }
    [[nodiscard]] int32_t GetStdSize(int32_t index) override { return sizes[static_cast<size_t>(index)]; }
    [[nodiscard]] int32_t ScaleX(int32_t value) override {
        return static_cast<int32_t>(int64_t{value} * scale / 100);
    }
    [[nodiscard]] int32_t ScaleY(int32_t value) override { return ScaleX(value); }

    std::array<MFont, FontCount> fonts;
    std::array<int32_t, std::size(MStyleMetricNames)> sizes = {};
    int32_t scale = 100;

private:
    MTestDrawer() : icon(IconSize, IconSize) {
        MDrawerToMBitmap(icon).FillRectangle(icon.GetRect().Shrunk(2, 2), GetTextColor(1, false),
                                             MDrawMode::Copy);
    }

    std::unique_ptr<MFontSubstitutes> substitutes;
    MBitmap icon;
};
