#include "ui/widgets/content/MContents.h"

#include "ui/control/MStyle.h"
#include "ui/control/kinds/MStyleMetric.h"
#include "ui/drawing/MClipScope.h"
#include "ui/geometry/MLength.h"
#include "ui/image/MAlphaMask.h"
#include "ui/text/MFont.h"
#include "ui/text/MShortenText.h"
#include "ui/text/MTextLayout.h"

#include <algorithm>

namespace {

MTextAlignment ToTextAlignment(MAlignment alignment) {
    const MTextAlignment across = alignment & MAlignLeft    ? MTextLeft
                                  : alignment & MAlignRight ? MTextRight
                                                            : MTextCenter;
    return across | (alignment & MAlignTop ? MTextTop : alignment & MAlignBottom ? MTextBottom : MTextMiddle);
}

MFont* GetFont(MDrawer& drawer, const MContentLook& look, MColor& color) {
    return drawer.GetFont(look.font, look.color, look.isInverted, look.drawState, color);
}

}  // namespace

MPoint MContentText::GetSize(MDrawer& drawer, const MContentLook& look) {
    MColor color;
    MFont* const font = GetFont(drawer, look, color);
    if (!font || text.IsEmpty()) return {};
    return {MTextLayout::GetWidth(*font, text), MTextLayout::GetHeight(*font, text)};
}

void MContentText::Paint(MDrawer& drawer, const MRect& rect, const MContentLook& look) {
    MColor color;
    MFont* const font = GetFont(drawer, look, color);
    if (!font) return;
    const MString shown = (isShortenedInside ? MShortenMiddle : MShortenText)(*font, text, rect.GetWidth());
    MClipScope clip(drawer);
    if (!shown.IsExactly(text) && clip.Intersect(rect)) return;
    drawer.DrawText(rect, *font, shown, color, ToTextAlignment(look.alignment));
}

MPoint MContentPicture::GetSize(MDrawer& drawer, const MContentLook&) {
    const MBitmap* const bitmap = FindBitmap(drawer);
    return bitmap ? MPoint{bitmap->GetWidth(), bitmap->GetHeight()} : MPoint();
}

void MContentPicture::Paint(MDrawer& drawer, const MRect& rect, const MContentLook& look) {
    const MBitmap* const bitmap = FindBitmap(drawer);
    MClipScope clip(drawer);
    if (!bitmap || bitmap->IsEmpty() || clip.Intersect(rect)) return;
    MColor color;
    (void)GetFont(drawer, look, color);
    const MRect place = MAlignInside(rect, GetSize(drawer, look), look.alignment);
    drawer.BitBltWhole(*bitmap, place.GetTopLeft(), color.alpha, MDrawMode::Overlay);
}

void MContentIcon::Paint(MDrawer& drawer, const MRect& rect, const MContentLook& look) {
    if (!look.isInverted) return MContentPicture::Paint(drawer, rect, look);
    const MBitmap* const bitmap = FindBitmap(drawer);
    MClipScope clip(drawer);
    if (!bitmap || bitmap->IsEmpty() || clip.Intersect(rect)) return;
    MColor color;
    (void)GetFont(drawer, look, color);
    MAlphaMask mask;
    bitmap->ToAlphaMask(mask);
    const MPoint size = GetSize(drawer, look);
    drawer.AlphaMask(MRect::FromSize(0, 0, size.x, size.y), mask,
                     MAlignInside(rect, size, look.alignment).GetTopLeft(), color, MDrawMode::Overlay);
}

const MBitmap* MContentIcon::FindBitmap(MDrawer& drawer) {
    return drawer.GetStdIcon(static_cast<int32_t>(icon));
}

const MBitmap* MContentStdBitmap::FindBitmap(MDrawer& drawer) {
    return drawer.GetStdBitmap(static_cast<int32_t>(bitmap));
}

MPoint MContentPair::GetSize(MDrawer& drawer, const MContentLook& look) {
    const MPoint one = first->GetSize(drawer, look);
    const MPoint other = second->GetSize(drawer, look);
    const int32_t space = drawer.GetStdSize(static_cast<int32_t>(MStyleMetric::XSpaceInMContent));
    return {MClampLength(int64_t{one.x} + space + other.x), std::max(one.y, other.y)};
}

void MContentPair::Paint(MDrawer& drawer, const MRect& rect, const MContentLook& look) {
    const MPoint size = GetSize(drawer, look);
    const MRect whole =
        MAlignInside(rect, {std::min(size.x, rect.GetWidth()), rect.GetHeight()}, look.alignment);
    MContentLook own = look;
    own.alignment = static_cast<MAlignment>((look.alignment & (MAlignTop | MAlignBottom)) | MAlignLeft);
    MRect left = whole;
    left.right = left.left + first->GetSize(drawer, look).x - 1;
    first->Paint(drawer, left.Intersected(whole), own);
    MRect right = whole;
    right.left = left.right + 1 + drawer.GetStdSize(static_cast<int32_t>(MStyleMetric::XSpaceInMContent));
    second->Paint(drawer, right, own);
}

MSTML& MContentSTML::GetDocument(const MContentLook& look) {
    const uint8_t state = look.drawState & MDrawEnabled;
    if (defaults.font != look.font || defaults.color != look.color || defaults.drawState != state) {
        defaults = {.font = look.font, .color = look.color, .drawState = state};
        document.SetDefaults(defaults);
    }
    return document;
}

MPoint MContentSTML::GetSize(MDrawer& drawer, const MContentLook& look) {
    const int32_t widest = GetDocument(look).GetMaximalWidth(drawer);
    return {widest, document.Measure(drawer, widest)};
}

int32_t MContentSTML::GetHeightForWidth(MDrawer& drawer, const MContentLook& look, int32_t width) {
    return GetDocument(look).Measure(drawer, width);
}

int32_t MContentSTML::GetWidthForHeight(MDrawer& drawer, const MContentLook& look, int32_t height) {
    MSTML& text = GetDocument(look);
    int32_t low = text.GetMinimalWidth(drawer);
    int32_t high = text.GetMaximalWidth(drawer);
    while (low < high) {
        const int32_t middle = low + (high - low) / 2;
        if (text.Measure(drawer, middle) > height)
            low = middle + 1;
        else
            high = middle;
    }
    return high;
}

void MContentSTML::Paint(MDrawer& drawer, const MRect& rect, const MContentLook& look) {
    MSTML& text = GetDocument(look);
    const int32_t height = text.Measure(drawer, rect.GetWidth());
    text.Paint(drawer, MAlignInside(rect, {rect.GetWidth(), height}, look.alignment), look.isInverted);
}
