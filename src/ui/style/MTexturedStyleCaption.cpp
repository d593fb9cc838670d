// Captions: the strip of a window or a panel with its title.

#include "foundation/base/MGuard.h"
#include "ui/control/MControl.h"
#include "ui/style/MTexturedStyle.h"
#include "ui/style/images/MImageContext.h"

#include <algorithm>

MCaptionLook* MTexturedStyle::FindCaption(MControl& control) {
    const MControlType type = control.GetControlType();
    if (type != MControlType::Window && type != MControlType::Panel) return nullptr;
    MCaptionType size = control.GetCaptionType();
    if (size == MCaptionType::Unset)
        size = control.GetCaption().IsEmpty() ? MCaptionType::None : MCaptionType::Normal;
    if (size == MCaptionType::None || control.GetCaption().IsEmpty()) return nullptr;
    MClassLook* const look = FindLook(control);
    MCaptionLook& caption =
        look->GetCaption(static_cast<size_t>(size) - static_cast<size_t>(MCaptionType::Small));
    return caption.height > 0 ? &caption : nullptr;
}

int32_t MTexturedStyle::GetCaptionHeight(MControl& control) {
    const MCaptionLook* const caption = FindCaption(control);
    return caption ? GetScale().GetY(caption->height + caption->topBorder) : 0;
}

bool MTexturedStyle::HitCaption(MControl& control, MPoint point) {
    return point.y >= 0 && point.y < GetCaptionHeight(control) && point.x >= 0 &&
           point.x < control.GetShownSize().x;
}

MColor MTexturedStyle::GetCaptionColor(MControl& control) {
    return MBaseStyle::GetCaptionColor(control);
}

void MTexturedStyle::PaintCaption(MControl& control, MDrawer& drawer) {
    MGuard("PaintCaption", [&] {
        MCaptionLook* const caption = FindCaption(control);
        if (!caption) return;
        const MStyleScale scale = GetScale();
        MRect rect = control.windowRect;
        rect.bottom = rect.top + GetCaptionHeight(control) - 1;
        caption->image.Paint(drawer, rect, control.GetDrawState(), GetContext());
        rect.left += scale.GetX(caption->contentLeftBorder + caption->textOffset);
        rect.right -= scale.GetX(caption->contentRightBorder);
        rect.top += scale.GetY(caption->topBorder);
        MColor color;
        MFont* const font = GetFont(caption->font, 0, IsInverted(control), control.GetDrawState(), color);
        if (!font) return;
        const MTextAlignment alignment = (caption->isCentered ? MTextCenter : MTextLeft) | MTextMiddle;
        drawer.DrawText(rect, *font, control.GetCaption(), GetCaptionColor(control).WithAlpha(color.alpha),
                        alignment);
    });
}

MControl* MTexturedStyle::GetCaptionPanel(MControl&) {
    return nullptr;
}
