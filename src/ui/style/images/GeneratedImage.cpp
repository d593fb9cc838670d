#include "ui/style/images/GeneratedImage.h"

#include "foundation/xml/MXMLItem.h"
#include "ui/drawing/MDrawerToMBitmap.h"
#include "ui/style/images/MComposite.h"

#include <algorithm>

namespace {

/// No length in a definition is larger, so that none of it can exhaust memory.
constexpr int32_t LongestLength = 1024;

int32_t GetLength(const MXMLItem& item, const char* attribute) {
    return std::clamp(item.GetInt32Attribute(attribute, 0), -LongestLength, LongestLength);
}

int32_t GetPositive(const MXMLItem& item, const char* attribute) {
    return std::max(GetLength(item, attribute), 0);
}

MPoint GetPoint(const MXMLItem& item, const char* x, const char* y) {
    return {GetLength(item, x), GetLength(item, y)};
}

/// A shape that is drawn in a square of 16, at the given square of pixels.
MOutlines::Outline Place(std::initializer_list<MPointF> points, double left, double top, double length) {
    MOutlines::Outline outline;
    for (const MPointF& point : points)
        outline.push_back({left + point.x * length / 16, top + point.y * length / 16});
    return outline;
}

}  // namespace

void GeneratedImage::Load(MXMLItem& item) {
    width = GetPositive(item, "width");
    height = GetPositive(item, "height");
    isMinimalSizeByCorners = item.GetInt32Attribute("minimalsizebycorners", 0) != 0;
    cornerSize = GetPositive(item, "cornersize");
    lineWidth = GetPositive(item, "linewidth");
    shape = MValueEnum<MGeneratedShape>::FromName(item.GetAttribute("type", MString()));
    cornerType = MValueEnum<MCornerType>::FromName(item.GetAttribute("cornertype", MString()));
    corners = MValueEnum<MCornerSide>::FromName(item.GetAttribute("corners", MString()));
    edge = MValueEnum<MCornerSide>::FromName(item.GetAttribute("edge", MString()));
    alpha = static_cast<uint8_t>(std::clamp(item.GetInt32Attribute("alpha", 255), 0, 255));
    operation = MParseColorOp(item.GetAttribute("op", MString()));
    color = item.GetAttribute("color", MString());
    rectangleColor = item.GetAttribute("rectanglecolor", MString());
    gradient = item.GetAttribute("gradient", MString());
    gradientType = MValueEnum<MGradientDirection>::FromName(item.GetAttribute("gradienttype", MString()));
    transfer.Load(item);
    rectangleTransfer.Load(item, MColorTransfer::RectangleKeys);
    rectangleBorder = GetPoint(item, "rectangleborderx", "rectanglebordery");
    rectangleOffset = GetPoint(item, "rectangleofsx", "rectangleofsy");
    offset = GetPoint(item, "ofsx", "ofsy");
    outset = GetLength(item, "outset");
    keepsLightness = item.GetInt32Attribute("inversion", 1) == 0;
}

void GeneratedImage::Check(const MStyleColors& colors) const {
    for (const MString& text : {color, rectangleColor, gradient})
        if (!text.IsEmpty()) (void)colors.Get(text, transfer, keepsLightness);
}

bool GeneratedImage::DependsOnWidth() const {
    return shape != MGeneratedShape::Rectangle ||
           (!gradient.IsEmpty() && gradientType >= MGradientDirection::Horizontal);
}

bool GeneratedImage::DependsOnHeight() const {
    return shape != MGeneratedShape::Rectangle ||
           (!gradient.IsEmpty() && gradientType < MGradientDirection::Horizontal);
}

MPoint GeneratedImage::GetMinimalSize() const {
    return isMinimalSizeByCorners ? MPoint{2 * cornerSize, 2 * cornerSize} : MPoint();
}

int32_t GeneratedImage::GetMargin(const MImageContext& context) const {
    const auto getLine = [&](int32_t length) { return context.scale.GetLine(std::abs(length)); };
    const int32_t moved = std::max(
        {getLine(offset.x), getLine(offset.y), getLine(rectangleOffset.x), getLine(rectangleOffset.y)});
    const int32_t inner = std::max(getLine(rectangleBorder.x), getLine(rectangleBorder.y));
    return context.faceBorder + getLine(outset) + getLine(cornerSize) + getLine(lineWidth) + inner + moved;
}

MColor GeneratedImage::GetColor(const MString& text, const MColorTransfer& own,
                                const MImageContext& context) const {
    const MColor found = context.colors.Get(text, own, keepsLightness);
    return found.WithAlpha(static_cast<uint8_t>(found.alpha * alpha / 255));
}

MOutlines::Outline GeneratedImage::GetCutRectangle(const MRect& rect, int32_t corner, int32_t inset) const {
    const double left = rect.left - 0.5 + inset;
    const double top = rect.top - 0.5 + inset;
    const double right = rect.right + 0.5 - inset;
    const double bottom = rect.bottom + 0.5 - inset;
    if (!(left < right && top < bottom)) return {};
    const bool isTriangle = cornerType >= MCornerType::Triangle;
    // A wide corner of one side reaches over the whole height.
    const bool isHalf = corners == MCornerSide::Top || corners == MCornerSide::Bottom;
    MRect reach = rect;
    if (corners == MCornerSide::Top) reach.bottom += corner + inset;
    if (corners == MCornerSide::Bottom) reach.top -= corner + inset;
    if (corners == MCornerSide::Left) reach.right += corner + inset;
    if (corners == MCornerSide::Right) reach.left -= corner + inset;
    MOutlines::Outline outline;
    if (isTriangle) {
        const double cut = std::min(
            {static_cast<double>(corner - inset), (right - left) / 2, (bottom - top) / (isHalf ? 1 : 2)});
        if (cut > 0) {
            const double l = reach.left - 0.5 + inset;
            const double t = reach.top - 0.5 + inset;
            const double r = reach.right + 0.5 - inset;
            const double b = reach.bottom + 0.5 - inset;
            outline = {{l + cut, t}, {r - cut, t}, {r, t + cut}, {r, b - cut},
                       {r - cut, b}, {l + cut, b}, {l, b - cut}, {l, t + cut}};
        }
    } else {
        outline = MOutlines::GetRoundRectangle(reach, corner, inset);
    }
    if (outline.empty()) return MOutlines::GetRectangle(left, top, right, bottom);
    for (MPointF& point : outline)
        point = {std::clamp(point.x, left, right), std::clamp(point.y, top, bottom)};
    return outline;
}

GeneratedImage::Outlines GeneratedImage::GetOutlines(const MRect& rect, int32_t corner, int32_t line) const {
    if (rect.IsEmpty()) return {};
    const int32_t length = std::min(rect.GetWidth(), rect.GetHeight());
    const int32_t left = rect.left + (rect.GetWidth() - length) / 2;
    const int32_t top = rect.top + (rect.GetHeight() - length) / 2;
    const auto place = [&](std::initializer_list<MPointF> points) {
        return Outlines{Place(points, left - 0.5, top - 0.5, length)};
    };
    switch (shape) {
    case MGeneratedShape::Circle: {
        const MPointF center{left - 0.5 + length / 2.0, top - 0.5 + length / 2.0};
        return line > 0 ? MOutlines::GetRing(center, length / 2.0, line)
                        : Outlines{MOutlines::GetCircle(center, length / 2.0)};
    }
    case MGeneratedShape::Check:
        return place({{1, 8.4}, {3.2, 6.2}, {6.4, 9.4}, {12.8, 3}, {15, 5.2}, {6.4, 13.8}});
    case MGeneratedShape::Dash: {
        const int32_t thickness = std::max((length + 2) / 5, 1);
        const int32_t inset = length / 8;
        const int32_t y = top + (length - thickness) / 2;
        return {MOutlines::GetRectangle(left - 0.5 + inset, y - 0.5, left - 0.5 + length - inset,
                                        y - 0.5 + thickness)};
    }
    case MGeneratedShape::TriangleLeft: return place({{4, 8}, {12, 0}, {12, 16}});
    case MGeneratedShape::TriangleRight: return place({{12, 8}, {4, 16}, {4, 0}});
    case MGeneratedShape::TriangleUp: return place({{8, 4}, {16, 12}, {0, 12}});
    case MGeneratedShape::TriangleDown: return place({{8, 12}, {0, 4}, {16, 4}});
    case MGeneratedShape::Rectangle: break;
    }
    Outlines outlines{GetCutRectangle(rect, corner, 0)};
    const bool isExterior =
        cornerType == MCornerType::RoundExterior || cornerType == MCornerType::TriangleExterior;
    if (isExterior) {
        outlines[0] = MOutlines::GetReversed(outlines[0]);
        outlines.push_back(
            MOutlines::GetRectangle(rect.left - 0.5, rect.top - 0.5, rect.right + 0.5, rect.bottom + 0.5));
    } else if (line > 0 && edge == MCornerSide::All) {
        outlines.push_back(MOutlines::GetReversed(GetCutRectangle(rect, corner, line)));
    }
    return outlines;
}

void GeneratedImage::Fill(MBitmap& bitmap, const MRect& rect, const Outlines& outlines, const MString& text,
                          const MColorTransfer& own, bool hasGradient, const MImageContext& context) const {
    const MColor from = GetColor(text, own, context);
    MBitmap layer(bitmap.GetWidth(), bitmap.GetHeight());
    MDrawerToMBitmap drawer(layer);
    if (hasGradient)
        drawer.FillOutlinesGradient(outlines, rect, from, GetColor(gradient, own, context), gradientType,
                                    MDrawMode::Overlay);
    else
        drawer.FillOutlines(outlines, from, MDrawMode::Overlay);
    if (edge != MCornerSide::All) KeepEdge(layer, context.scale.GetLine(lineWidth));
    MComposite(bitmap, layer, operation);
}

void GeneratedImage::KeepEdge(MBitmap& layer, int32_t line) const {
    const MPoint inward = edge == MCornerSide::Top      ? MPoint{0, -line}
                          : edge == MCornerSide::Bottom ? MPoint{0, line}
                          : edge == MCornerSide::Left   ? MPoint{-line, 0}
                                                        : MPoint{line, 0};
    const MBitmap whole = layer;
    const MRect all = MRect::FromSize(0, 0, layer.GetWidth(), layer.GetHeight());
    for (int32_t y = 0; y < layer.GetHeight(); ++y) {
        MColor* const row = layer.EditRow(y);
        for (int32_t x = 0; x < layer.GetWidth(); ++x) {
            const MPoint other = MPoint{x, y} + inward;
            const int32_t inside = all.Contains(other) ? whole.GetPixel(other.x, other.y).alpha : 0;
            row[x].alpha = static_cast<uint8_t>(std::max(row[x].alpha - inside, 0));
        }
    }
}

void GeneratedImage::Draw(MBitmap& bitmap, const MImageContext& context) const {
    const MStyleScale& scale = context.scale;
    const auto getLine = [&](MPoint lengths) {
        return MPoint{scale.GetLine(lengths.x), scale.GetLine(lengths.y)};
    };
    const int32_t inset = context.faceBorder - scale.GetLine(outset);
    const int32_t corner = scale.GetLine(cornerSize);
    const int32_t line = scale.GetLine(lineWidth);
    const MRect rect = MRect::FromSize(0, 0, bitmap.GetWidth(), bitmap.GetHeight())
                           .Shrunk(inset, inset)
                           .Shifted(getLine(offset));
    const bool hasRectangle = !rectangleColor.IsEmpty();
    if (!color.IsEmpty())
        Fill(bitmap, rect, GetOutlines(rect, corner, line), color, transfer,
             !gradient.IsEmpty() && !hasRectangle, context);
    if (!hasRectangle) return;
    const MPoint border = getLine(rectangleBorder) + MPoint{line, line};
    const MRect inner = rect.Shrunk(border.x, border.y).Shifted(getLine(rectangleOffset));
    const int32_t innerCorner = std::max(corner - std::min(border.x, border.y), 0);
    Fill(bitmap, inner, GetOutlines(inner, innerCorner, 0), rectangleColor, rectangleTransfer,
         !gradient.IsEmpty(), context);
}
