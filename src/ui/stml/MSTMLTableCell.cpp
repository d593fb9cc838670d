#include "ui/stml/MSTMLTableCell.h"

#include "ui/stml/MSTMLAttributes.h"
#include "ui/text/MTextMeasure.h"

#include <algorithm>

namespace {

constexpr const char* AlignmentNames[] = {"Top", "Center", "Bottom"};

}  // namespace

MSTMLTableCell::MSTMLTableCell(const MSTMLAttributes& attributes)
    : width(attributes.GetLength("width", {MSTMLLength::Kind::Percent, 0})),
      valign(static_cast<Alignment>(attributes.GetName("valign", AlignmentNames))),
      autosize(attributes.GetBool("autosize")),
      padding(attributes.GetSpace("padding", 2)),
      border(attributes.GetSpace("border", 0)),
      borderAlpha(attributes.GetByte("borderalpha", 255)) {
    fill.Read(attributes);
}

int32_t MSTMLTableCell::GetFixedWidth(MSTMLContext& context) {
    if (!autosize) return width.ResolveX(context.drawer, MSTMLUnlimited, 0) + GetFrame();
    int32_t natural = 0;
    (void)ComputeSize(context, MSTMLUnlimited, natural);
    return natural;
}

int32_t MSTMLTableCell::ComputeHeight(MSTMLContext& context, int32_t cellWidth, int32_t maxHeight) {
    contentHeight = MSTMLContainer::ComputeHeight(context, std::max(0, cellWidth - GetFrame()),
                                                  std::max(0, maxHeight - GetFrame()));
    return height = MAddPixels(contentHeight, GetFrame());
}

int32_t MSTMLTableCell::ComputeSize(MSTMLContext& context, int32_t cellWidth, int32_t& outWidth) {
    const int32_t inner = cellWidth < MSTMLUnlimited ? std::max(0, cellWidth - GetFrame()) : MSTMLUnlimited;
    const int32_t innerHeight = MSTMLContainer::ComputeSize(context, inner, outWidth);
    outWidth = MAddPixels(outWidth, GetFrame());
    return MAddPixels(innerHeight, GetFrame());
}

int32_t MSTMLTableCell::GetMinimalWidth(MSTMLContext& context) {
    return MAddPixels(MSTMLContainer::GetMinimalWidth(context), GetFrame());
}

int32_t MSTMLTableCell::GetMaximalWidth(MSTMLContext& context) {
    return MAddPixels(MSTMLContainer::GetMaximalWidth(context), GetFrame());
}

void MSTMLTableCell::Paint(MSTMLContext& context, const MRect& rect, bool isInverted) {
    isInverted = fill.PaintFill(context.drawer, rect, isInverted, border, borderAlpha);
    MRect inner = rect.Shrunk(padding + border, padding + border);
    const int32_t room = std::max(0, inner.GetHeight() - contentHeight);
    if (valign == Alignment::Center) inner.top += room / 2;
    if (valign == Alignment::Bottom) inner.top += room;
    PaintItems(context, inner, isInverted);
}
