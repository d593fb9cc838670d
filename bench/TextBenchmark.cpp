#include "bench/MComparison.h"
#include "ui/drawing/MDrawerToMBitmap.h"
#include "ui/image/MAlphaMask.h"
#include "ui/text/MFont.h"
#include "ui/text/MTextLayout.h"

#include <vector>

namespace {

constexpr int Rounds = 41;
constexpr int LinesPerRound = 2000;
constexpr const char* FontPath = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
constexpr const char* Line =
    "Sphinx of black quartz judge my vow; pack my box with five dozen liquor jugs ok?";
constexpr MColor Ink = MColor::FromRGB(230, 235, 240);

/// The glyphs of the line where they stand.
std::vector<MPlacedGlyph> PlaceGlyphs(MFont& font, const MRect& rect) {
    std::vector<MPlacedGlyph> glyphs;
    const MString text = Line;
    MTextLayout layout(font, text, rect, MTextLeft | MTextTop);
    for (MPlacedGlyph glyph; layout.TakeGlyph(glyph);) glyphs.push_back(glyph);
    return glyphs;
}

MComparison CompareText() {
    MFont font;
    font.LoadFromFile(FontPath);
    font.SetSize(-13);
    MBitmap bitmap(750, 24);
    MDrawerToMBitmap drawer(bitmap);
    const MRect rect{4, 2, 745, 21};
    const std::vector<MPlacedGlyph> glyphs = PlaceGlyphs(font, rect);
    const auto drawLines = [&] {
        for (int i = 0; i < LinesPerRound; ++i)
            drawer.AlignedTextOut(rect, font, Line, Ink, MTextLeft | MTextTop);
    };
    const auto drawMasks = [&] {
        for (int i = 0; i < LinesPerRound; ++i)
            for (const MPlacedGlyph& glyph : glyphs)
                drawer.AlphaMask(MRect::FromSize(0, 0, glyph.mask->GetWidth(), glyph.mask->GetHeight()),
                                 *glyph.mask, glyph.point, Ink, MDrawMode::Overlay);
    };
    // The comparison gives speeds; what a line costs more is the masks' speed by the line's.
    MComparison comparison =
        MCompareSpeeds(Rounds, MClock::Processor, LinesPerRound / 1e3, {{}, drawMasks}, {{}, drawLines});
    comparison.unit = "thousand/s";
    comparison.kind = MComparison::Goal::AtMost;
    comparison.goal = 1.3;
    comparison.note += "; ours are the masks alone, the reference is the line of 80 letters";
    return comparison;
}

[[maybe_unused]] const bool isRegistered = MRegisterComparison("Text, a cached line", CompareText);

}  // namespace
