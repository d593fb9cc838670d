#include "ui/control/MControl.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/MDrawerUsingStyle.h"
#include "ui/control/MRenderer.h"
#include "ui/control/windows/MWindows.h"
#include "ui/drawing/MClipScope.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace {

/// The key of a control's bitmap among its properties.
constexpr uint32_t BitmapKey = 0x50414D42;  // "BMAP"

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
    while (owner->PaintsNothing() && owner->GetParent()) owner = owner->GetParent();
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

/// What is left of rectangles without another one.
void Subtract(std::vector<MRect>& pieces, const MRect& hole) {
    for (size_t count = pieces.size(); count > 0; --count) {
        const MRect piece = pieces[count - 1];
        const MRect inside = piece.Intersected(hole);
        if (inside.IsEmpty()) continue;
        pieces.erase(pieces.begin() + static_cast<ptrdiff_t>(count - 1));
        for (const MRect& rest : {MRect{piece.left, piece.top, piece.right, inside.top - 1},
                                  MRect{piece.left, inside.top, inside.left - 1, inside.bottom},
                                  MRect{inside.right + 1, inside.top, piece.right, inside.bottom},
                                  MRect{piece.left, inside.bottom + 1, piece.right, piece.bottom}})
            if (!rest.IsEmpty()) pieces.push_back(rest);
    }
}

/// Fills what lies behind a transparent control, but for what it covers by itself.
void PaintBackground(MControl& control, MDrawer& drawer, const MRect& rect) {
    if (!control.GetParent() || IsTooLarge(GetBitmapOwner(*control.GetParent()))) {
        drawer.FillRectangle(rect, {0, 0, 0, 255}, MDrawMode::Copy);
        return;
    }
    MControl& behind = GetBitmapOwner(*control.GetParent());
    const std::shared_ptr<MBitmap> bitmap = GetBitmap(behind);
    std::vector<MRect> pieces{rect};
    Subtract(pieces, control.GetOpaquePart());
    for (const MRect& piece : pieces)
        drawer.BitBlt(piece.Shifted(control.windowOffset - behind.windowOffset), *bitmap, piece.GetTopLeft(),
                      255, MDrawMode::Copy);
}

void PaintToWindow(MControl& control, const MRect& rect) {
    const std::unique_ptr<MDrawer> drawer = MRenderer_ToWindow().CreateDrawer(control);
    if (!drawer) return;
    MClipScope clip(*drawer);
    if (!clip.Intersect(rect)) control.PaintWith(*drawer);
}

/// The parts of a control where no child lies: the others will be shown with the children, whatever lies behind.
std::vector<MRect> FindBare(const MControl& control, const MRect& rect) {
    // More pieces would take longer than the pixels that they save.
    constexpr size_t MostPieces = 256;
    std::vector<MRect> pieces{rect};
    for (const MControl* child : control.GetChildren()) {
        if (pieces.empty() || pieces.size() > MostPieces) break;
        if (child->Is(MControlFlag::Visible))
            Subtract(pieces, child->contentRect.Shifted(child->windowOffset - control.windowOffset));
    }
    return pieces;
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
    const MPoint place = control.windowOffset;
    const std::vector<MRect> bare = FindBare(control, rect);
    control.PaintWith(*drawer);
    for (const MRect& piece : bare)
        window->BitBlt(piece.Shifted(offset), *bitmap, piece.Shifted(place).GetTopLeft(), 255,
                       MDrawMode::Copy);
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
