#include "ui/drawing/MDrawer.h"

#include "ui/text/MTextLayout.h"

int32_t MDrawer::GetWidth() {
    return width != 0 || !target ? width : target->GetWidth();
}

int32_t MDrawer::GetHeight() {
    return height != 0 || !target ? height : target->GetHeight();
}

MBitmap* MDrawer::GetStdIcon(int32_t index) {
    return target ? target->GetStdIcon(index) : nullptr;
}

const MAlphaMask* MDrawer::GetStdIconMask(int32_t index) {
    return target ? target->GetStdIconMask(index) : nullptr;
}

MBitmap* MDrawer::GetStdBitmap(int32_t index) {
    return target ? target->GetStdBitmap(index) : nullptr;
}

MFontTable* MDrawer::GetFontTable() {
    return target ? target->GetFontTable() : nullptr;
}

MFont* MDrawer::GetFont(int32_t fontIndex, int32_t colorIndex, bool isInverted, uint8_t drawState,
                        MColor& color) {
    return target ? target->GetFont(fontIndex, colorIndex, isInverted, drawState, color) : nullptr;
}

MColor MDrawer::GetTextColor(int32_t index, bool isInverted) {
    if (index == BackgroundIndex) return GetBackgroundColor();
    return target ? target->GetTextColor(index, isInverted) : MColor();
}

int32_t MDrawer::GetStdSize(int32_t index) {
    return target ? target->GetStdSize(index) : 0;
}

int32_t MDrawer::ScaleX(int32_t value) {
    return target ? target->ScaleX(value) : value;
}

int32_t MDrawer::ScaleY(int32_t value) {
    return target ? target->ScaleY(value) : value;
}

void MDrawer::SetBackgroundColor(MColor color) {
    backgroundColor = color;
}

MColor MDrawer::GetBackgroundColor() {
    return backgroundColor;
}

MRect MDrawer::GetClip() {
    return target ? target->GetClip().Shifted(MPoint() - translation) : MRect();
}

void MDrawer::SetClip(const MRect& rect) {
    if (target) target->SetClip(Shift(rect));
}

void MDrawer::PatBlt(const MRect& rect, const MBitmap& bitmap, MPoint offset, uint8_t alpha, MDrawMode mode) {
    if (target) target->PatBlt(Shift(rect), bitmap, offset, alpha, mode);
}

void MDrawer::BitBlt(const MRect& source, const MBitmap& bitmap, MPoint point, uint8_t alpha,
                     MDrawMode mode) {
    if (target) target->BitBlt(source, bitmap, Shift(point), alpha, mode);
}

void MDrawer::AlphaMask(const MRect& source, const MAlphaMask& mask, MPoint point, MColor color,
                        MDrawMode mode) {
    if (target) target->AlphaMask(source, mask, Shift(point), color, mode);
}

void MDrawer::StretchBlt(const MRect& rect, const MBitmap& bitmap, const MRect& source, uint8_t alpha,
                         MDrawMode mode) {
    if (target) target->StretchBlt(Shift(rect), bitmap, source, alpha, mode);
}

void MDrawer::BitBltWhole(const MBitmap& bitmap, MPoint point, uint8_t alpha, MDrawMode mode) {
    BitBlt(bitmap.GetRect(), bitmap, point, alpha, mode);
}

void MDrawer::StretchBltWhole(const MRect& rect, const MBitmap& bitmap, uint8_t alpha, MDrawMode mode) {
    StretchBlt(rect, bitmap, bitmap.GetRect(), alpha, mode);
}

void MDrawer::StretchBltH(const MRect& rect, const MBitmap& bitmap, const MRect& source, uint8_t alpha,
                          MDrawMode mode) {
    if (target) target->StretchBltH(Shift(rect), bitmap, source, alpha, mode);
}

void MDrawer::StretchBltV(const MRect& rect, const MBitmap& bitmap, const MRect& source, uint8_t alpha,
                          MDrawMode mode) {
    if (target) target->StretchBltV(Shift(rect), bitmap, source, alpha, mode);
}

void MDrawer::AlignedTextOut(const MRect& rect, MFont& font, const MString& text, MColor color,
                             MTextAlignment alignment) {
    if (target) target->AlignedTextOut(Shift(rect), font, text, color, alignment);
}

void MDrawer::SetPixel(MPoint point, MColor color) {
    if (target) target->SetPixel(Shift(point), color);
}

void MDrawer::Line(MPoint from, MPoint to, MColor color) {
    if (target) target->Line(Shift(from), Shift(to), color);
}

void MDrawer::SetPixelF(MPointF point, MColor color) {
    if (target) target->SetPixelF(Shift(point), color);
}

void MDrawer::LineF(MPointF from, MPointF to, MColor color) {
    if (target) target->LineF(Shift(from), Shift(to), color);
}

void MDrawer::ResetPixelEffect() {
    if (target) target->ResetPixelEffect();
}

void MDrawer::Rectangle(const MRect& rect, MColor color, MDrawMode mode) {
    if (target) target->Rectangle(Shift(rect), color, mode);
}

void MDrawer::FillRectangle(const MRect& rect, MColor color, MDrawMode mode) {
    if (target) target->FillRectangle(Shift(rect), color, mode);
}

void MDrawer::FillRectangleGradient(const MRect& rect, MColor from, MColor to, MGradientDirection direction,
                                    MDrawMode mode) {
    if (target) target->FillRectangleGradient(Shift(rect), from, to, direction, mode);
}

void MDrawer::RoundRectangle(const MRect& rect, double radius, MColor color, MDrawMode mode) {
    if (target) target->RoundRectangle(Shift(rect), radius, color, mode);
}

void MDrawer::FillRoundRectangle(const MRect& rect, double radius, MColor color, MDrawMode mode) {
    if (target) target->FillRoundRectangle(Shift(rect), radius, color, mode);
}

void MDrawer::Circle(MPointF center, double radius, MColor color, MDrawMode mode) {
    if (target) target->Circle(Shift(center), radius, color, mode);
}

void MDrawer::FillCircle(MPointF center, double radius, MColor color, MDrawMode mode) {
    if (target) target->FillCircle(Shift(center), radius, color, mode);
}

void MDrawer::FillTriangle(MPointF p1, MPointF p2, MPointF p3, MColor color, MDrawMode mode) {
    if (target) target->FillTriangle(Shift(p1), Shift(p2), Shift(p3), color, mode);
}

void MDrawer::FillVerticalColumn(int32_t x, double top, double bottom, MColor color) {
    if (target)
        target->FillVerticalColumn(x + translation.x, top + translation.y, bottom + translation.y, color);
}

void MDrawer::FillHorizontalRow(int32_t y, double left, double right, MColor color) {
    if (target)
        target->FillHorizontalRow(y + translation.y, left + translation.x, right + translation.x, color);
}

void MDrawer::PaintPolyLine(const PointList& points, MColor color) {
    if (target) target->PaintPolyLine(Shift(points), color);
}

void MDrawer::PaintPolygon(const PointList& points, MColor color) {
    if (target) target->PaintPolygon(Shift(points), color);
}

void MDrawer::PaintHorizontalPolyLine(int32_t firstX, const ValueList& values, MColor color) {
    if (target) target->PaintHorizontalPolyLine(firstX + translation.x, ShiftY(values), color);
}

void MDrawer::PaintHorizontalGraph(int32_t firstX, const ValueList& values, double baseY, MColor color) {
    if (target)
        target->PaintHorizontalGraph(firstX + translation.x, ShiftY(values), baseY + translation.y, color);
}

void MDrawer::PaintHorizontalGraph(int32_t firstX, const ValueList& upper, const ValueList& lower,
                                   MColor color) {
    if (target) target->PaintHorizontalGraph(firstX + translation.x, ShiftY(upper), ShiftY(lower), color);
}

void MDrawer::Flush() {
    if (target) target->Flush();
}

void MDrawer::PaintGlyph(const MPlacedGlyph& glyph, MColor color) {
    if (target) target->PaintGlyph({glyph.mask, Shift(glyph.point)}, color);
}

void MDrawer::PatBltPart(const MRect& rect, const MBitmap& bitmap, const MRect& source, uint8_t alpha,
                         MDrawMode mode) {
    if (target) target->PatBltPart(Shift(rect), bitmap, source, alpha, mode);
}

void MDrawer::FillOutlines(std::span<const MOutlines::Outline> outlines, MColor color, MDrawMode mode) {
    if (target) target->FillOutlines(Shift(outlines), color, mode);
}

void MDrawer::FillOutlinesGradient(std::span<const MOutlines::Outline> outlines, const MRect& rect,
                                   MColor from, MColor to, MGradientDirection direction, MDrawMode mode) {
    if (target) target->FillOutlinesGradient(Shift(outlines), Shift(rect), from, to, direction, mode);
}

MDrawer::PointList MDrawer::Shift(const PointList& points) const {
    PointList shifted = points;
    for (MPointF& point : shifted) point = Shift(point);
    return shifted;
}

MDrawer::ValueList MDrawer::ShiftY(const ValueList& values) const {
    ValueList shifted = values;
    for (double& value : shifted) value += translation.y;
    return shifted;
}

std::vector<MOutlines::Outline> MDrawer::Shift(std::span<const MOutlines::Outline> outlines) const {
    std::vector<MOutlines::Outline> shifted(outlines.begin(), outlines.end());
    for (MOutlines::Outline& outline : shifted)
        for (MPointF& point : outline) point = Shift(point);
    return shifted;
}
