#include "ui/control/MControl.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/MDrawerUsingStyle.h"
#include "ui/control/MRenderer.h"
#include "ui/control/windows/MWindows.h"
#include "ui/drawing/MClipScope.h"

#include <utility>

namespace {

/// The key of a control's bitmap among its properties.
constexpr uint32_t BitmapKey = 0x50414D42;  // "BMAP"

bool IsEmptyClass(const MControl& control) {
    return control.GetControlType() == MControlType::Empty;
}

/// Whether what lies behind shows through: those classes have no background of their own.
bool IsTransparent(const MControl& control) {
    switch (control.GetControlType()) {
    case MControlType::Window: return false;
    case MControlType::NoBackground:
    case MControlType::Control:
    case MControlType::Static: return true;
    default: return control.Is(MControlFlag::Transparent);
    }
}

/// Whether a control is larger than any screen, as what is scrolled may be. A bitmap of it could take all memory.
bool IsTooLarge(const MControl& control) {
    constexpr int64_t MostPixels = 1 << 26;
    const MPoint size = control.GetShownSize();
    return int64_t{size.x} * size.y > MostPixels;
}

/// The control itself or the nearest one above it that has a bitmap; its root at last.
MControl& GetBitmapOwner(MControl& control) {
    MControl* owner = &control;
    while (IsEmptyClass(*owner) && owner->GetParent()) owner = owner->GetParent();
    return *owner;
}

/// A control's bitmap. A paint shares it, since the control may be hidden, resized or end in it.
struct OwnBitmap final : public MObject {
    const std::shared_ptr<MBitmap> bitmap = std::make_shared<MBitmap>();
};

/// Whether the control has a bitmap of its size, with what was painted before.
bool HasBitmap(const MControl& control) {
    const auto* const own = control.GetProperty<OwnBitmap>(BitmapKey);
    return own && MPoint{own->bitmap->GetWidth(), own->bitmap->GetHeight()} == control.GetShownSize();
}

/// The control's bitmap, in its size.
std::shared_ptr<MBitmap> GetBitmap(MControl& control) {
    if (!HasBitmap(control)) {
        auto own = std::make_unique<OwnBitmap>();
        const MPoint size = control.GetShownSize();
        own->bitmap->CreateOpaque(size.x, size.y);
        control.SetProperty(BitmapKey, std::move(own));
    }
    return control.GetProperty<OwnBitmap>(BitmapKey)->bitmap;
}

/// Fills what lies behind a transparent control.
void PaintBackground(MControl& control, MDrawer& drawer, const MRect& rect) {
    if (!control.GetParent() || IsTooLarge(GetBitmapOwner(*control.GetParent()))) {
        drawer.FillRectangle(rect, {0, 0, 0, 255}, MDrawMode::Copy);
        return;
    }
    MControl& behind = GetBitmapOwner(*control.GetParent());
    const MRect source = rect.Shifted(control.windowOffset - behind.windowOffset);
    drawer.BitBlt(source, *GetBitmap(behind), rect.GetTopLeft(), 255, MDrawMode::Copy);
}

void PaintToWindow(MControl& control, const MRect& rect) {
    const std::unique_ptr<MDrawer> drawer = MRenderer_ToWindow().CreateDrawer(control);
    if (!drawer) return;
    MClipScope clip(*drawer);
    if (!clip.Intersect(rect)) control.PaintWith(*drawer);
}

int64_t GetArea(const MRect& rect) {
    return rect.IsEmpty() ? 0 : int64_t{rect.GetWidth()} * rect.GetHeight();
}

/// What the largest child covers of a part of a control: it will be shown with that child, whatever lies
/// behind.
MRect FindCovered(const MControl& control, const MRect& rect) {
    MRect covered;
    for (const MControl* child : control.GetChildren()) {
        if (!child->Is(MControlFlag::Visible)) continue;
        const MRect part =
            child->contentRect.Shifted(child->windowOffset - control.windowOffset).Intersected(rect);
        if (GetArea(part) > GetArea(covered)) covered = part;
    }
    return covered;
}

/// Shows a part of a picture in the window, but for what is covered.
void Show(MDrawer& window, const MBitmap& picture, const MRect& part, const MRect& covered, MPoint place) {
    const auto show = [&](const MRect& piece) {
        if (!piece.IsEmpty())
            window.BitBlt(piece, picture, place + (piece.GetTopLeft() - part.GetTopLeft()), 255,
                          MDrawMode::Copy);
    };
    if (covered.IsEmpty()) return show(part);
    show({part.left, part.top, part.right, covered.top - 1});
    show({part.left, covered.top, covered.left - 1, covered.bottom});
    show({covered.right + 1, covered.top, part.right, covered.bottom});
    show({part.left, covered.bottom + 1, part.right, part.bottom});
}

}  // namespace

bool MRenderer_MBitmap::InvalidateRect(MControl& control, const MRect& rect) {
    MControl& owner = GetBitmapOwner(control);
    return owner.RecordDirty(rect.Shifted(control.windowOffset - owner.windowOffset));
}

void MRenderer_MBitmap::Render(MControl& control, const MRect& rect) {
    MWindows* const windows = MWindows::GetInstance();
    MDrawer* const window = windows ? windows->GetSystem().GetDrawer(control.GetRoot()) : nullptr;
    MControl& owner = GetBitmapOwner(control);
    if (IsTooLarge(owner)) return PaintToWindow(control, rect);
    // A new bitmap is painted whole, since only what changes is painted later.
    const MRect painted = HasBitmap(owner) ? rect : control.contentRect;
    const std::shared_ptr<MBitmap> bitmap = GetBitmap(owner);
    const std::unique_ptr<MDrawer> drawer = CreateDrawer(control);
    if (!window || !drawer) return;
    drawer->SetClip(painted);
    if (&owner == &control && IsTransparent(control)) PaintBackground(control, *drawer, painted);
    const MPoint offset = control.windowOffset - owner.windowOffset;
    const MRect covered = FindCovered(control, rect);
    const MPoint place = rect.Shifted(control.windowOffset).GetTopLeft();
    control.PaintWith(*drawer);
    Show(*window, *bitmap, rect.Shifted(offset), covered.IsEmpty() ? covered : covered.Shifted(offset),
         place);
}

std::unique_ptr<MDrawer> MRenderer_MBitmap::CreateDrawer(MControl& control) {
    MStyle* const style = control.GetStyle();
    if (!style) return nullptr;
    MControl& owner = GetBitmapOwner(control);
    if (IsTooLarge(owner)) return MRenderer_ToWindow().CreateDrawer(control);
    auto drawer = std::make_unique<MDrawerUsingStyle<MDrawerToMBitmap>>(*style, control);
    drawer->hasAlphaChannel = false;
    drawer->SetBitmap(GetBitmap(owner).get());
    const MPoint offset = control.windowOffset - owner.windowOffset;
    const MPoint size = control.GetShownSize();
    drawer->SetTranslation(offset.x, offset.y);
    drawer->SetSize(size.x, size.y);
    return drawer;
}

void MRenderer_MBitmap::OnControlHidden(MControl& control) {
    control.SetProperty(BitmapKey, nullptr);
}

void MRenderer_MBitmap::OnControlDetached(MControl& control) {
    control.SetProperty(BitmapKey, nullptr);
}
