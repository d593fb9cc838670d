// The way of a paint. `InvalidateRect` lets the renderer record a rectangle in the control (`pendingRect`)
// and adds it to what is dirty of the window. The tick, or `RedrawNow`, hands that to the platform, whose
// paint message comes back as `PerformPaintDispatch`: first all that was recorded is handed down the tree
// (`PropagateDirty`), since whatever lies on something painted has to be painted too; then the tree is
// painted, parents before their children and siblings in their order.

#include "foundation/base/MGuard.h"
#include "foundation/events/MEmulatedLockGuard.h"
#include "foundation/events/MLockGuard.h"
#include "ui/control/MControl.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/windows/MWindows.h"

#include <utility>

void MControl::Invalidate() {
    InvalidateRect(contentRect);
}

void MControl::InvalidateRect(const MRect& rect) {
    MWindows* const windows = GetWindows();
    if (!windows || !root->Is(MControlFlag::LayoutValid) || !IsShown()) return;
    MControlRoot& state = GetRootState();
    {
        const MLockGuard guard(&windows->GetPaintLock());
        if (root->Is(MControlFlag::Frozen)) {
            state.windowDirtyFlag = true;
            return;
        }
        const MRect own = rect.Intersected(contentRect);
        if (own.IsEmpty() || !state.renderer) return;
        // What is recorded already is asked for again, unless it was just now: its paint may have failed.
        if (!state.renderer->InvalidateRect(*this, own) && state.windowDirtyFlag) return;
        for (MControl* above = this; above; above = above->parent) above->isDirtyBelow = true;
        MRect dirty = own.Shifted(windowOffset);
        ++dirty.right;
        ++dirty.bottom;
        state.windowDirtyRect = state.windowDirtyFlag ? state.windowDirtyRect.United(dirty) : dirty;
        state.windowDirtyFlag = true;
    }
    windows->RequestTick();
}

bool MControl::RecordDirty(const MRect& rect) {
    const MRect all = pendingRect.United(rect);
    if (pendingFlag && all == pendingRect) return false;
    pendingRect = all;
    pendingFlag = true;
    return true;
}

MRect MControl::GetOpaquePart() {
    MStyle* const style = GetStyle();
    return style ? style->GetOpaquePart(*this) : MRect();
}

void MControl::SetFrozen(bool isFrozen) {
    if (root->Is(MControlFlag::Frozen) == isFrozen) return;
    root->Set(MControlFlag::Frozen, isFrozen);
    if (isFrozen || !GetRootState().windowDirtyFlag) return;
    root->pendingFlag = false;  // what was recorded before may have been painted meanwhile
    root->Invalidate();
}

void MControl::FlushPaint() {
    MWindows* const windows = GetWindows();
    if (!windows || !root->Is(MControlFlag::LayoutValid)) return;
    MControlRoot& state = GetRootState();
    MRect dirty;
    {
        const MLockGuard guard(&windows->GetPaintLock());
        if (!state.windowDirtyFlag) return;
        state.windowDirtyFlag = false;
        dirty = state.windowDirtyRect;
        state.windowDirtyRect = MRect();
    }
    if (root->Is(MControlFlag::Frozen)) dirty = {0, 0, root->size.x, root->size.y};
    windows->GetSystem().Invalidate(*root, dirty);
}

void MControl::RedrawNow() {
    const MControlRef window(root);
    FlushPaint();
    if (!window) return;
    MWindows* const windows = window->GetWindows();
    if (windows && window->Is(MControlFlag::LayoutValid)) windows->GetSystem().Update(*window.Get());
}

void MControl::PerformPaintDispatch() {
    MGuard("MControl::PerformPaintDispatch", [this] {
        MWindows* const windows = GetWindows();
        if (!windows || !GetRootState().renderer) return;
        const std::shared_ptr<MControlRoot> state = GetRootState().shared_from_this();
        if (!root->Is(MControlFlag::Frozen)) {
            const MEmulatedLockGuard guard(&state->lock, MERWLock::Read);
            const MLockGuard paintGuard(&windows->GetPaintLock());
            (void)root->PropagateDirty(MRect());
        }
        root->PaintTree(root->contentRect);
    });
}

MRect MControl::PropagateDirty(const MRect& fromParent) {
    if (!isDirtyBelow && fromParent.IsEmpty()) return {};
    isDirtyBelow = false;
    isPaintedBelow = true;
    paintRect = (pendingFlag ? pendingRect : MRect()).United(fromParent);
    paintFlag = !paintRect.IsEmpty();
    pendingFlag = false;
    pendingRect = MRect();
    MRect painted = paintRect.Intersected(contentRect);
    for (MControl* child : children) {
        if (!child->Is(MControlFlag::Visible)) {
            child->pendingFlag = false;
            child->pendingRect = MRect();
            continue;
        }
        // What earlier siblings paint counts as well, since a control lies on those before it.
        const MPoint offset = child->windowOffset - windowOffset;
        const MRect common = painted.Intersected(child->contentRect.Shifted(offset));
        const MRect below =
            child->PropagateDirty(common.IsEmpty() ? common : common.Shifted(MPoint() - offset));
        if (!below.IsEmpty()) painted = painted.United(below.Shifted(offset));
    }
    return painted;
}

void MControl::PaintTree(const MRect& windowClip) {
    const bool isFrozen = root->Is(MControlFlag::Frozen);
    if (!isFrozen && !isPaintedBelow) return;
    isPaintedBelow = false;
    const MPoint shownSize = GetShownSize();
    if (!Is(MControlFlag::Visible) || shownSize.x < 1 || shownSize.y < 1) return;
    const MControlRef self(this);
    const MRect clip = windowClip.Intersected(GetWindowContentRect());
    MGuard("MControl::PerformPaintDispatch", [&] {
        if (MStyle* const style = GetStyle()) style->PrePaint(*this);
        if (!isFrozen && !std::exchange(paintFlag, false)) return;
        const MRect wanted = isFrozen ? contentRect : paintRect;
        const MRect rect = wanted.Intersected(clip.Shifted(MPoint() - windowOffset));
        MRenderer* const renderer = GetRootState().renderer.get();
        if (renderer && !rect.IsEmpty()) renderer->Render(*this, rect);
    });
    for (int32_t i = 0; self && i < children.GetCount(); ++i) children[i]->PaintTree(clip);
}

void MControl::PaintWith(MDrawer& drawer) {
    const MControlRef self(this);
    if (Paint(drawer) && self && !Is(MControlFlag::Collapsed)) PaintContent(drawer);
}

bool MControl::Paint(MDrawer& drawer) {
    if (IsRoot() && !GetRootState().backgroundBitmap.IsEmpty())
        drawer.BitBltWhole(GetRootState().backgroundBitmap, {}, 255, MDrawMode::Copy);
    else if (MStyle* const style = GetStyle())
        style->PaintControl(*this, drawer);
    return true;
}
