// Captions: the strip of a window or a panel with its title.

#include "foundation/base/MGuard.h"
#include "ui/control/MControl.h"
#include "ui/control/windows/MWindows.h"
#include "ui/drawing/MClipScope.h"
#include "ui/style/MTexturedStyle.h"
#include "ui/style/captions/ControlCaptionInstance.h"
#include "ui/style/captions/MCaptionPanel.h"
#include "ui/style/colors/MContrast.h"
#include "ui/style/images/MImageContext.h"
#include "ui/text/MShortenText.h"

namespace {

/// Of the title of a window that the user does not work with.
constexpr int32_t InactiveAlpha = 168;

/// What the caption of a class is: text that the control shows, a title that it has whenever there is one, or a
/// title for those who ask for it.
enum class CaptionKind { Text, Title, TitleOnDemand };

CaptionKind GetCaptionKind(MControlType type) {
    switch (type) {
    case MControlType::Window:
    case MControlType::Panel: return CaptionKind::Title;
    case MControlType::ListBox:
    case MControlType::TreeControl:
    case MControlType::TabSet: return CaptionKind::TitleOnDemand;
    default: return CaptionKind::Text;
    }
}

}  // namespace

MCaptionLook* MTexturedStyle::FindCaption(MControl& control) {
    MClassLook* const look = FindLook(control);
    MCaptionType size = control.GetCaptionType();
    const CaptionKind kind = GetCaptionKind(control.GetControlType());
    if (!look || kind == CaptionKind::Text || control.GetCaption().IsEmpty()) return nullptr;
    if (size == MCaptionType::Unset && kind == CaptionKind::Title) size = MCaptionType::Normal;
    if (size == MCaptionType::None || size == MCaptionType::Unset) return nullptr;
    const auto index = static_cast<size_t>(size) - static_cast<size_t>(MCaptionType::Small);
    // A class without captions has them as panels do.
    for (MClassLook* const from : {look, &GetLook(MStyleClass::Panel)})
        if (from->GetCaption(index).height > 0) return &from->GetCaption(index);
    return nullptr;
}

int32_t MTexturedStyle::GetCaptionHeight(MControl& control) {
    const MCaptionLook* const caption = FindCaption(control);
    return caption ? GetScale().GetY(caption->height + caption->topBorder) : 0;
}

int32_t MTexturedStyle::GetMostTitleWidth() const {
    const MRect desktop = owner ? owner->GetSystem().GetWorkArea(std::nullopt) : MRect();
    return desktop.IsEmpty() ? MControl::Unlimited : desktop.GetWidth() / 2;
}

bool MTexturedStyle::HitCaption(MControl& control, MPoint point) {
    return point.y >= 0 && point.y < GetCaptionHeight(control) && point.x >= 0 &&
           point.x < control.GetShownSize().x;
}

MColor MTexturedStyle::GetCaptionColor(MControl& control) {
    const MCaptionLook* const caption = FindCaption(control);
    if (!caption || !caption->isBlackOrWhite) return MBaseStyle::GetCaptionColor(control);
    constexpr MColor Black = MColor::FromRGB(0, 0, 0);
    constexpr MColor White = MColor::FromRGB(255, 255, 255);
    const MColor behind = GetColors().Get(MStyleTone::Panel);
    return MContrast::GetRatio(White, behind) > MContrast::GetRatio(Black, behind) ? White : Black;
}

void MTexturedStyle::PaintCaption(MControl& control, MDrawer& drawer) {
    MGuard("PaintCaption", [&] {
        MCaptionLook* const caption = FindCaption(control);
        if (!caption) return;
        MRect strip = control.windowRect;
        strip.bottom =
            strip.top - 1 +
            (caption->imageHeight > 0 ? GetScale().GetY(caption->imageHeight) : GetCaptionHeight(control));
        const int32_t hidden = caption->isHighlighted ? 0 : MDrawHighlighted;
        const auto state = static_cast<uint8_t>(control.GetDrawState() & ~hidden);
        caption->image.Paint(drawer, strip, state, GetContext());

        MColor color;
        MFont* const font = GetFont(caption->font, 0, IsInverted(control), state, color);
        if (!font) return;
        const bool isActive = !control.IsRoot() || control.Is(MControlFlag::Active);
        color = GetCaptionColor(control).WithAlpha(
            static_cast<uint8_t>(isActive ? color.alpha : color.alpha * InactiveAlpha / 255));
        MRect rect = GetCaptionRect(control);
        if (const ControlCaptionInstance* const instance = ControlCaptionInstance::Find(control))
            rect.right -= instance->GetWidth();
        MClipScope clip(drawer);
        if (clip.Intersect(rect)) return;
        const MTextAlignment alignment = (caption->isCentered ? MTextCenter : MTextLeft) | MTextMiddle;
        const MString title = TransformCaption(control, control.GetCaption());
        drawer.DrawText(rect, *font, MShortenText(*font, title, rect.GetWidth()), color, alignment);
    });
}

MControl* MTexturedStyle::GetCaptionPanel(MControl& control) {
    const ControlCaptionInstance* const instance = ControlCaptionInstance::Find(control);
    return instance ? instance->GetPanel() : nullptr;
}

void MTexturedStyle::AttachControl(MControl& control) {
    // Corners are round and frames thin, so what lies behind shows through all but windows.
    const MControlType type = control.GetControlType();
    if (type != MControlType::Window && type != MControlType::Menu) control.Set(MControlFlag::Transparent);

    if (!FindCaption(control)) return control.SetProperty(ControlCaptionInstance::Tag, nullptr);
    if (!ControlCaptionInstance::Find(control))
        control.SetProperty(ControlCaptionInstance::Tag, std::make_unique<ControlCaptionInstance>(control));
    ControlCaptionInstance::Find(control)->Update(*this);
}

void MTexturedStyle::DetachControl(MControl& control) {
    control.SetProperty(ControlCaptionInstance::Tag, nullptr);
}

MRect MTexturedStyle::GetCaptionRect(MControl& control) {
    const MCaptionLook* const caption = FindCaption(control);
    if (!caption) return {};
    const MStyleScale scale = GetScale();
    MRect rect = control.windowRect;
    rect.bottom = rect.top + GetCaptionHeight(control) - 1;
    rect.left += scale.GetX(caption->contentLeftBorder + caption->textOffset);
    rect.right -= scale.GetX(caption->contentRightBorder);
    rect.top += scale.GetY(caption->topBorder);
    return rect;
}

void MTexturedStyle::ComputeRectangles(MControl& control, MRect& windowRect, MRect& clientRect) {
    MBaseStyle::ComputeRectangles(control, windowRect, clientRect);
    if (ControlCaptionInstance* const instance = ControlCaptionInstance::Find(control))
        instance->Arrange(GetCaptionRect(control));
}

bool MTexturedStyle::PreprocessEvent(MControl& control, const MSystemEvent& event) {
    // The title of an active window is brighter.
    if (event.type == MEventType::Activation && control.IsRoot())
        control.InvalidateRect({0, 0, control.GetShownSize().x - 1, GetCaptionHeight(control) - 1});
    return false;
}
