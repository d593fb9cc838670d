#include "examples/drawing-sheet/DrawingSheet.h"

#include "foundation/text/MUnicode.h"
#include "ui/drawing/MBitmapFill.h"
#include "ui/text/MFont.h"

#include <cmath>

namespace {

constexpr int32_t PanelWidth = 240;
constexpr int32_t PanelHeight = 180;
constexpr int32_t PanelGap = 12;
constexpr int32_t TitleHeight = 20;
constexpr int32_t ColumnCount = 3;
constexpr int32_t ModeRowHeight = 220;

constexpr MColor Paper = MColor::FromRGB(0x20, 0x24, 0x2C);
constexpr MColor PanelTop = MColor::FromRGB(0x3A, 0x40, 0x4C);
constexpr MColor PanelBottom = MColor::FromRGB(0x2A, 0x2F, 0x39);
constexpr MColor Ink = MColor::FromRGB(0xE8, 0xEC, 0xF0);
constexpr MColor Accent = MColor::FromRGB(0x4F, 0xB3, 0xFF);
constexpr MColor Warm = MColor::FromRGB(0xFF, 0xB0, 0x4F);
constexpr MDrawMode Blend = MDrawMode::Overlay;

}  // namespace

DrawingSheet::DrawingSheet(MFont& font, int32_t percent)
    : font(font),
      percent(percent),
      sheet(
          Scale(PanelGap + ColumnCount * (PanelWidth + PanelGap)),
          Scale(PanelGap + 2 * (PanelHeight + PanelGap) + PanelHeight + PanelGap + ModeRowHeight + PanelGap)),
      target(sheet),
      drawer(&target) {}

MBitmap DrawingSheet::Draw() {
    target.FillRectangle(sheet.GetRect(), Paper, MDrawMode::Copy);
    DrawGradients();
    DrawShapes();
    DrawLines();
    DrawPictures();
    DrawFrames();
    DrawGraphs();
    DrawText();
    DrawModes();
    return sheet;
}

void DrawingSheet::Write(const MRect& rect, const MString& text, double size, MColor color,
                         MTextAlignment alignment) {
    font.SetSize(-std::round(size * percent / 100));
    drawer.DrawText(rect, font, text, color, alignment);
}

void DrawingSheet::BeginPanel(int32_t column, int32_t row, const char* name) {
    const bool isWide = row >= 2;
    const int32_t width = isWide ? ColumnCount * (PanelWidth + PanelGap) - PanelGap : PanelWidth;
    const int32_t height = row == 3 ? ModeRowHeight : PanelHeight;
    const MPoint origin =
        Place(PanelGap + column * (PanelWidth + PanelGap), PanelGap + row * (PanelHeight + PanelGap));
    target.SetClip(sheet.GetRect());
    drawer.SetTranslation(origin.x, origin.y);
    drawer.FillRoundRectangle(Area(0, 0, width, height), Scale(8), PanelBottom, Blend);
    const MRect title = Area(0, 0, width, TitleHeight);
    drawer.SetClip(title);
    drawer.FillRoundRectangle(Area(0, 0, width, height), Scale(8), PanelTop, Blend);
    drawer.SetClip(Area(0, 0, width, height));
    drawer.textShadowAlpha = 160;
    Write(title, name, 12, Ink, MTextCenter | MTextMiddle);
    drawer.textShadowAlpha = 0;
    drawer.SetTranslation(origin.x, origin.y + Scale(TitleHeight));
}

void DrawingSheet::DrawGradients() {
    BeginPanel(0, 0, "Gradients in eight directions");
    for (int32_t i = 0; i < 8; ++i)
        drawer.FillRectangleGradient(Area(10 + i % 4 * 56, 10 + i / 4 * 72, 50, 66), Accent,
                                     Warm.WithAlpha(0), static_cast<MGradientDirection>(i), Blend);
}

void DrawingSheet::DrawShapes() {
    BeginPanel(1, 0, "Shapes and outlines");
    drawer.FillRectangle(Area(10, 10, 50, 40), Accent, Blend);
    drawer.Rectangle(Area(68, 10, 50, 40), Accent, Blend);
    drawer.FillRoundRectangle(Area(126, 10, 50, 40), Scale(12), Accent, Blend);
    drawer.RoundRectangle(Area(184, 10, 46, 40), Scale(12), Accent, Blend);
    drawer.FillCircle(PlaceF(35, 80), Scale(22), Warm, Blend);
    drawer.Circle(PlaceF(93, 80), Scale(22), Warm, Blend);
    drawer.FillTriangle(PlaceF(126, 102), PlaceF(176, 102), PlaceF(151, 58), Warm, Blend);
    MDrawer::PointList star;
    const double sines[] = {0, 0.951, 0.588, -0.588, -0.951};
    const double cosines[] = {1, 0.309, -0.809, -0.809, 0.309};
    for (int32_t i = 0; i < 5; ++i)
        star.Add(PlaceF(207 + 24 * sines[i * 2 % 5], 82 - 24 * cosines[i * 2 % 5]));
    drawer.PaintPolygon(star, Warm);
    for (int32_t i = 0; i < 14; ++i)
        drawer.FillCircle(PlaceF(18 + i * 15.7, 130 + i % 3 * 0.33), (i + 1) * 0.5 * percent / 100,
                          Ink.WithAlpha(static_cast<uint8_t>(60 + i * 15)), Blend);
}

void DrawingSheet::DrawLines() {
    BeginPanel(2, 0, "Lines: stepped, and smooth");
    for (int32_t i = 0; i <= 8; ++i) {
        drawer.Line(Place(10, 10), Place(110, 10 + i * 16), Accent);
        drawer.LineF(PlaceF(125, 10), PlaceF(225, 10 + i * 16), Warm);
        drawer.SetPixelF(PlaceF(12 + i * 6.3, 145), Ink);
        drawer.SetPixel(Place(130 + i * 6, 145), Ink);
    }
}

MBitmap DrawingSheet::MakeBall(int32_t size) const {
    MBitmap ball(size, size);
    MDrawerToMBitmap painter(ball);
    const double middle = (size - 1) / 2.0;
    for (int32_t i = 0; i < 24; ++i)
        painter.FillCircle({middle - i * size * 0.006, middle - i * size * 0.008}, size * (0.48 - i * 0.019),
                           MColor::FromRGB(static_cast<uint8_t>(40 + i * 9), static_cast<uint8_t>(90 + i * 6),
                                           230, static_cast<uint8_t>(i == 0 ? 90 : 255)),
                           Blend);
    return ball;
}

void DrawingSheet::DrawPictures() {
    BeginPanel(0, 1, "Pictures: whole, tiled, stretched, faded");
    const MBitmap ball = MakeBall(Scale(32));
    drawer.BitBltWhole(ball, Place(10, 10), 255, Blend);
    drawer.BitBltWhole(ball, Place(50, 10), 120, Blend);
    drawer.PatBlt(Area(92, 10, 66, 66), ball, Place(8, 8), 255, Blend);
    drawer.StretchBltWhole(Area(166, 10, 66, 66), ball, 255, Blend);
    drawer.StretchBltWhole(Area(10, 52, 74, 24), ball, 255, Blend);
    drawer.StretchBltH(Area(10, 84, 100, 66), ball, ball.GetRect(), 255, Blend);
    drawer.StretchBltV(Area(120, 84, 112, 66), ball, ball.GetRect(), 255, Blend);
}

MBitmap DrawingSheet::MakeFrame() const {
    MBitmap frame(Scale(30), Scale(30));
    MDrawerToMBitmap painter(frame);
    painter.FillRoundRectangle(frame.GetRect(), Scale(8), Accent, Blend);
    painter.FillRoundRectangle(frame.GetRect().Shrunk(Scale(3), Scale(3)), Scale(5), PanelBottom, Blend);
    painter.FillCircle(PlaceF(14.5, 14.5), Scale(4), Warm.WithAlpha(120), Blend);
    return frame;
}

void DrawingSheet::DrawFrames() {
    BeginPanel(1, 1, "Frames of nine parts");
    const MBitmap frame = MakeFrame();
    const auto paint = [&](const MRect& rect, MBitmapFill edges, int32_t center) {
        drawer.PaintCornered(rect, frame, frame.GetRect(), Place(10, 10), static_cast<int32_t>(edges), center,
                             255, Blend);
    };
    drawer.BitBltWhole(frame, Place(10, 10), 255, Blend);
    paint(Area(50, 10, 80, 60), MBitmapFill::Stretch, static_cast<int32_t>(MBitmapFill::Stretch));
    paint(Area(140, 10, 90, 60), MBitmapFill::Stretch, static_cast<int32_t>(MBitmapFill::Pattern));
    paint(Area(10, 80, 120, 70), MBitmapFill::Stretch, MDrawer::PartKept);
    paint(Area(140, 80, 12, 70), MBitmapFill::Stretch, static_cast<int32_t>(MBitmapFill::Stretch));
    paint(Area(162, 100, 68, 50), MBitmapFill::Pattern, static_cast<int32_t>(MBitmapFill::HPattern));
}

void DrawingSheet::DrawGraphs() {
    BeginPanel(2, 1, "Graphs");
    const int32_t count = Scale(220);
    MDrawer::ValueList upper;
    MDrawer::ValueList lower;
    for (int32_t i = 0; i < count; ++i) {
        // Parabolas in place of a wave: the same on every machine.
        const double t = i * 4.0 / count;
        const double phase = t - std::floor(t);
        const double wave = (std::floor(t / 2) * 2 == std::floor(t) ? 1 : -1) * 4 * phase * (1 - phase);
        upper.Add(Scale(40) - wave * Scale(30));
        lower.Add(Scale(40) + wave * Scale(12));
    }
    drawer.PaintHorizontalGraph(Scale(10), upper, lower, Accent.WithAlpha(90));
    drawer.PaintHorizontalPolyLine(Scale(10), upper, Accent);
    drawer.PaintHorizontalGraph(Scale(10), lower, Scale(75), Warm.WithAlpha(70));
    for (int32_t i = 0; i < 22; ++i)
        drawer.FillVerticalColumn(Scale(12 + i * 10), Scale(150) - i * 2.35 * percent / 100, Scale(150), Ink);
    for (int32_t i = 0; i < 6; ++i)
        drawer.FillHorizontalRow(Scale(84 + i * 4), Scale(10), Scale(10) + i * 7.3 * percent / 100, Warm);
    MDrawer::PointList zigzag;
    for (int32_t i = 0; i < 8; ++i) zigzag.Add(PlaceF(100 + i * 18, 85 + i % 2 * 14));
    drawer.PaintPolyLine(zigzag, Ink);
}

void DrawingSheet::DrawText() {
    BeginPanel(0, 2, "Text");
    const MString pangram = MDecodeUTF8Exact("Příliš žluťoučký kůň, ŕĺ ñ ß ø \xCE\xA9 \xD0\x96 12:45");
    int32_t y = 6;
    for (const int32_t size : {8, 9, 11, 13, 16, 24}) {
        Write(Area(10, y, 500, size + 6), pangram, size, Ink, MTextLeft | MTextMiddle);
        y += size + 8;
    }
    const MRect box = Area(540, 10, 190, 90);
    drawer.Rectangle(box, Accent.WithAlpha(120), Blend);
    Write(box, "left\ntop", 11, Ink, MTextLeft | MTextTop);
    Write(box, "centre", 11, Warm, MTextCenter | MTextMiddle);
    Write(box, "right\nbottom", 11, Ink, MTextRight | MTextBottom);
    const MRect plate = Area(540, 108, 190, 42);
    drawer.FillRectangleGradient(plate, Accent, Ink, MGradientDirection::Horizontal, Blend);
    drawer.textShadowAlpha = 200;
    Write(plate, "with a shadow", 20, PanelBottom, MTextCenter | MTextMiddle);
    drawer.textShadowAlpha = 0;
}

void DrawingSheet::DrawModes() {
    BeginPanel(0, 3, "Modes: a gradient over a gradient, and a disc");
    const int32_t cellWidth = 82;
    for (int32_t i = 0; i < MColorOpCount; ++i) {
        const int32_t x = 8 + i % 9 * cellWidth;
        const int32_t y = 6 + i / 9 * 96;
        const auto mode = static_cast<MDrawMode>(i);
        const MRect cell = Area(x, y, cellWidth - 8, 66);
        drawer.FillRectangleGradient(cell, MColor::FromRGB(20, 20, 30), MColor::FromRGB(220, 230, 120),
                                     MGradientDirection::Vertical, MDrawMode::Copy);
        drawer.FillRectangleGradient(Area(x + 6, y + 6, cellWidth - 20, 30), MColor::FromRGB(255, 40, 40),
                                     MColor::FromRGB(40, 120, 255, 200), MGradientDirection::Horizontal,
                                     mode);
        drawer.FillCircle(PlaceF(x + 37, y + 49), Scale(13), MColor::FromRGB(90, 200, 255, 220), mode);
        Write(Area(x, y + 68, cellWidth - 8, 14), MGetColorOpName(mode), 8, Ink, MTextCenter | MTextMiddle);
    }
}
