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
      frame{attributes.GetSpace("padding", 2), attributes.GetSpace("border", 0)},
      borderAlpha(attributes.GetByte("borderalpha", 255)) {
    fill.Read(attributes);
}

int32_t MSTMLTableCell::GetFixedWidth(MSTMLContext& context) {
    if (!autosize) return width.ResolveX(context.drawer, MSTMLUnlimited, 0) + frame.GetWidth(context.drawer);
    int32_t natural = 0;
    (void)ComputeSize(context, MSTMLUnlimited, natural);
    return natural;
}

int32_t MSTMLTableCell::ComputeHeight(MSTMLContext& context, int32_t cellWidth, int32_t maxHeight) {
    contentHeight =
        MSTMLContainer::ComputeHeight(context, std::max(0, cellWidth - frame.GetWidth(context.drawer)),
                                      std::max(0, maxHeight - frame.GetHeight(context.drawer)));
    return height = MAddPixels(contentHeight, frame.GetHeight(context.drawer));
}

int32_t MSTMLTableCell::ComputeSize(MSTMLContext& context, int32_t cellWidth, int32_t& outWidth) {
    const int32_t frameWidth = frame.GetWidth(context.drawer);
    const int32_t inner = cellWidth < MSTMLUnlimited ? std::max(0, cellWidth - frameWidth) : MSTMLUnlimited;
    const int32_t innerHeight = MSTMLContainer::ComputeSize(context, inner, outWidth);
    outWidth = MAddPixels(outWidth, frameWidth);
    return MAddPixels(innerHeight, frame.GetHeight(context.drawer));
}

int32_t MSTMLTableCell::GetMinimalWidth(MSTMLContext& context) {
    return MAddPixels(MSTMLContainer::GetMinimalWidth(context), frame.GetWidth(context.drawer));
}

int32_t MSTMLTableCell::GetMaximalWidth(MSTMLContext& context) {
    return MAddPixels(MSTMLContainer::GetMaximalWidth(context), frame.GetWidth(context.drawer));
}

void MSTMLTableCell::Paint(MSTMLContext& context, const MRect& rect, bool isInverted) {
    isInverted =
        fill.PaintFill(context.drawer, rect, isInverted, frame.GetBorder(context.drawer), borderAlpha);
    const MPoint side = frame.GetSize(context.drawer);
    MRect inner = rect.Shrunk(side.x, side.y);
    const int32_t room = std::max(0, inner.GetHeight() - contentHeight);
    if (valign == Alignment::Center) inner.top += room / 2;
    if (valign == Alignment::Bottom) inner.top += room;
    PaintItems(context, inner, isInverted);
}
