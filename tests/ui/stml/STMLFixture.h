#pragma once

#include "tests/support/MTestDrawer.h"
#include "tests/support/MTestText.h"
#include "ui/stml/MSTML.h"
#include "ui/text/MTextLayout.h"

#include <map>
#include <string>

/// Shows a document as rows of characters. All fonts are one of equal advances; a "*" is a picture.
class Screen final : public MTestDrawer {
public:
    static constexpr int32_t Size = 1000;

    Screen() : MTestDrawer(MFile::Join(SYSTEM_FONTS, "dejavu/DejaVuSansMono.ttf"), 10), bitmap(Size, Size) {
        SetBitmap(&bitmap);
        advance = fonts[0].GetGlyph('x').advance;
        lineHeight = fonts[0].GetAscent() + fonts[0].GetDescent();
    }

    /// Paints into columns of letters from the left; with a height, as if there were that much room.
    void Show(MSTML& document, int32_t width, int32_t height = Size) {
        glyphs.clear();
        fills.clear();
        document.Paint(*this, MRect::FromSize(0, 0, width, height), false);
    }
    /// One row after the other, between which stands a "|".
    std::string Rows(const MString& text, int32_t columns) {
        MSTML document(text);
        Show(document, columns * advance);
        std::map<int32_t, std::string> rows;
        for (const Glyph& glyph : glyphs) {
            std::string& row = rows[glyph.baseline];
            const auto column = static_cast<size_t>(glyph.x / advance);
            row.resize(std::max(row.size(), column + 1), ' ');
            row[column] = glyph.letter;
        }
        std::string joined;
        for (const auto& [baseline, row] : rows) joined += (joined.empty() ? "" : "|") + row;
        return joined;
    }
    /// Where the letters of a document stand, in pixels.
    std::string Places(const MString& text, int32_t width) {
        MSTML document(text);
        Show(document, width);
        std::string places;
        for (const Glyph& glyph : glyphs) places += glyph.letter + std::to_string(glyph.x) + " ";
        return places;
    }
    /// The letters with font and colour where these change: "a[1 2]bc[0 0]d".
    std::string Looks(const MString& text) {
        MSTML document(text);
        Show(document, Size);
        std::string looks;
        std::string last;
        for (const Glyph& glyph : glyphs) {
            const std::string look = "[" + std::to_string(glyph.font) + " " + ColorName(glyph.color) + "]";
            looks += (look == last ? "" : look) + glyph.letter;
            last = look;
        }
        return looks;
    }
    /// The rectangles that were filled or framed, as "left,top widthxheight".
    [[nodiscard]] std::string Fills() const {
        std::string all;
        for (const MRect& rect : fills)
            all += std::to_string(rect.left) + "," + std::to_string(rect.top) + " " +
                   std::to_string(rect.GetWidth()) + "x" + std::to_string(rect.GetHeight()) + "; ";
        return all;
    }

    void PaintGlyph(const MPlacedGlyph& glyph, MColor color) override {
        for (int32_t font = 0; font < FontCount; ++font) {
            for (char letter = '!'; letter <= '~'; ++letter) {
                const MGlyph& found =
                    fonts[static_cast<size_t>(font)].GetGlyph(static_cast<char32_t>(letter));
                if (found.mask.get() != glyph.mask) continue;
                glyphs.push_back(
                    {letter, font, color, glyph.point.x - found.left, glyph.point.y + found.top});
            }
        }
    }
    void BitBlt(const MRect& source, const MBitmap&, MPoint point, uint8_t, MDrawMode) override {
        glyphs.push_back({'*', 0, {}, point.x, point.y + source.GetHeight()});
    }
    void FillRectangle(const MRect& rect, MColor, MDrawMode) override { fills.push_back(rect); }
    void Rectangle(const MRect& rect, MColor, MDrawMode) override { fills.push_back(rect); }

    struct Glyph {
        char letter;
        int32_t font;
        MColor color;
        int32_t x;
        int32_t baseline;
    };
    std::vector<Glyph> glyphs;
    std::vector<MRect> fills;
    int32_t advance = 0;
    int32_t lineHeight = 0;

private:
    std::string ColorName(MColor color) {
        for (int32_t index = 0; index < 5; ++index)
            for (const bool isInverted : {false, true})
                if (GetTextColor(index, isInverted).WithAlpha(color.alpha) == color)
                    return std::to_string(index) + (isInverted ? "i" : "") +
                           (color.alpha < 255 ? "/" + std::to_string(color.alpha) : "");
        return "?";
    }

    MBitmap bitmap;
};
