#include "setup/wizard/MLeftPicture.h"

#include <algorithm>

MLeftPicture::MLeftPicture(MControl* parent, const MScaledPicture& picture) : MStatic(parent, "leftimage") {
    // The narrowest page has room beside it.
    constexpr MPoint Most = {200, MScaledPicture::LongestSide};
    auto content = std::make_unique<MContentScaledPicture>(picture, Most);
    shown = content.get();
    layoutRatio.x = 0;
    SetContentAlignment(MAlignLeft | MAlignTop);
    SetContent(std::move(content));
}

void MLeftPicture::GetMinimalContentSize(int32_t& x, int32_t& y) {
    MStatic::GetMinimalContentSize(x, y);
    y = 0;
}

void MLeftPicture::PaintContent(MDrawer& drawer) {
    const MPoint size = shown->GetSize(drawer, {});
    MRect below = GetContentRectangle();
    below.top += size.y;
    below.right = std::min(below.right, below.left + size.x - 1);
    if (!below.IsEmpty()) drawer.FillRectangle(below, shown->GetLowestColor(drawer), MDrawMode::Overlay);
    MStatic::PaintContent(drawer);
}
