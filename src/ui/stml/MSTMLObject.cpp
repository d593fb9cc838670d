#include "ui/stml/MSTMLObject.h"

#include "ui/stml/MSTMLAttributes.h"

namespace {

constexpr const char* AlignmentNames[] = {"Left", "Center", "Right"};
constexpr const char* VerticalAlignmentNames[] = {"Top", "Center", "Bottom"};

int32_t GetAlignedStart(MSTMLObject::Alignment alignment, int32_t start, int32_t end, int32_t size) {
    if (size > end - start + 1) return start;
    switch (alignment) {
    case MSTMLObject::Alignment::Start: break;
    case MSTMLObject::Alignment::Center: return (start + 1 + end - size) / 2;
    case MSTMLObject::Alignment::End: return end + 1 - size;
    }
    return start;
}

}  // namespace

void MSTMLObject::Read(const MSTMLAttributes& attributes) {
    width = attributes.GetLength("width", width);
    objectHeight = attributes.GetLength("height", objectHeight);
    alignment = static_cast<Alignment>(attributes.GetName("align", AlignmentNames));
    verticalAlignment = static_cast<Alignment>(attributes.GetName("valign", VerticalAlignmentNames));
}

MPoint MSTMLObject::GetSize(MSTMLContext& context, int32_t availableWidth, int32_t availableHeight) {
    const MPoint natural = GetNaturalSize(context);
    return {width.ResolveX(context.drawer, availableWidth, natural.x),
            objectHeight.ResolveY(context.drawer, availableHeight, natural.y)};
}

int32_t MSTMLObject::ComputeHeight(MSTMLContext& context, int32_t availableWidth, int32_t maxHeight) {
    return height = GetSize(context, availableWidth, maxHeight).y;
}

int32_t MSTMLObject::ComputeSize(MSTMLContext& context, int32_t availableWidth, int32_t& outWidth) {
    const MPoint size = GetSize(context, availableWidth, MSTMLUnlimited);
    outWidth = size.x;
    return size.y;
}

int32_t MSTMLObject::GetMinimalWidth(MSTMLContext& context) {
    return GetSize(context, MSTMLUnlimited, MSTMLUnlimited).x;
}

int32_t MSTMLObject::GetMaximalWidth(MSTMLContext& context) {
    return GetMinimalWidth(context);
}

void MSTMLObject::PaintInCell(MSTMLContext& context, const MRect& cell, int32_t availableWidth,
                              bool isInverted) {
    PaintObject(context, GetAligned(cell, GetSize(context, availableWidth, cell.GetHeight())), isInverted);
}

void MSTMLObject::Paint(MSTMLContext& context, const MRect& rect, bool isInverted) {
    PaintInCell(context, rect, rect.GetWidth(), isInverted);
}

MRect MSTMLObject::GetAligned(const MRect& rect, MPoint size) const {
    return MRect::FromSize(GetAlignedStart(alignment, rect.left, rect.right, size.x),
                           GetAlignedStart(verticalAlignment, rect.top, rect.bottom, size.y), size.x, size.y);
}
