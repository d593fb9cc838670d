#include "foundation/base/MRaise.h"
#include "foundation/events/MEmulatedLockGuard.h"
#include "ui/control/MControl.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/windows/MWindows.h"
#include "ui/geometry/MLength.h"

#include <algorithm>

namespace {

MPoint AddPlaces(MPoint a, MPoint b) {
    return {MClampPlace(int64_t{a.x} + b.x), MClampPlace(int64_t{a.y} + b.y)};
}

/// Whether the size along an axis follows from the rectangle that a layout gives.
bool IsStretched(const MControl& control, MAxis axis) {
    // What is left of a collapsed control keeps its size, and the control the one that it will have again.
    if (control.Is(MControlFlag::Collapsed) && control.collapsedSize[axis] != 0) return false;
    return control.layoutPlacement & MAlignFill || control.layoutRatio[axis] > 0 ||
           (control.Is(MControlFlag::Plastic) && control.Is(MControlFlag::PlasticAdaptSize));
}

int32_t GetPlace(const MControl& control, MAxis axis, const MRect& rect) {
    const MAlignment atLow = axis == MAxis::X ? MAlignLeft : MAlignTop;
    const MAlignment atHigh = axis == MAxis::X ? MAlignRight : MAlignBottom;
    const int32_t border = SizeComputer::GetBorder(control, axis);
    const int64_t low = rect.GetLow(axis);
    const int64_t high = rect.GetHigh(axis);
    const int32_t length = control.GetShownSize()[axis];
    if (IsStretched(control, axis) || control.layoutPlacement & atLow) return MClampPlace(low + border);
    // One that is too long for its place begins where that begins.
    const int64_t place =
        control.layoutPlacement & atHigh ? high - length - border + 1 : low + (high - length - low + 1) / 2;
    return MClampPlace(std::max(place, low));
}

/// Lets the platform's window follow the root's size.
void ResizeWindow(MControl& root) {
    if (root.Is(MControlFlag::HasWindow) && MWindows::GetInstance())
        MWindows::GetInstance()->GetSystem().Resize(root, root.GetShownSize());
}

/// Repaints the place of a control, before and after that changes.
void InvalidatePlace(MControl& control) {
    MControl* const parent = control.GetParent();
    if (parent)
        parent->InvalidateRect(control.contentRect.Shifted(control.windowOffset - parent->windowOffset));
}

bool MayGrow(MControl& root) {
    MWindows* const windows = MWindows::GetInstance();
    return root.Is(MControlFlag::HasWindow) && windows && !root.Is(MControlFlag::FullScreen) &&
           !windows->GetSystem().IsMaximized(root);
}

}  // namespace

void MControl::AddLayout(MLayout* layout) {
    const MEmulatedLockGuard guard(&GetRootState().lock, MERWLock::Write);
    layouts.Add(layout);
    TouchSizes();
}

void MControl::SetClientControl(MControl* control) {
    if (control && control->parent != this)
        MRaise(MExceptionInvalidArgument, "Only a child can be the client control.");
    const MEmulatedLockGuard guard(&GetRootState().lock, MERWLock::Write);
    if (control && control->parentLayout) control->parentLayout->Detach(*control);
    clientControl = control;
    TouchSizes();
}

bool MControl::IsHeld() const {
    return Is(MControlFlag::OwnerLayoutSet) || (parent && parent->clientControl == this);
}

MPoint MControl::GetShownSize() const {
    MPoint shown = size;
    if (!Is(MControlFlag::Collapsed)) return shown;
    if (collapsedSize.x != 0) shown.x = collapsedSize.x;
    if (collapsedSize.y != 0) shown.y = collapsedSize.y;
    return shown;
}

MPoint MControl::GetOffsetInParent() const {
    if (Is(MControlFlag::OverlayControl)) return AddPlaces(position, {});
    if (!IsHeld())
        return AddPlaces(AddPlaces(layoutOffset, position),
                         parent ? parent->clientRect.GetTopLeft() : MPoint());
    return Is(MControlFlag::PositionIsAbsolute) ? position : AddPlaces(layoutOffset, position);
}

void MControl::StoreSize(MPoint newSize) {
    newSize = {MClampLength(newSize.x), MClampLength(newSize.y)};
    if (newSize == size) return;
    size = newSize;
    if (Is(MControlFlag::Resized)) return;
    flags.Set(MControlFlag::Resized, true);
    GetRootState().resized.emplace_back(this);
}

void MControl::NotifySizes() {
    const MControlRef window(root);
    while (window && !window->rootState->resized.empty()) {
        const MControlRef control(window->rootState->resized.front().Get());
        window->rootState->resized.pop_front();
        if (!control) continue;
        control->flags.Set(MControlFlag::Resized, false);
        control->OnSizeChanged(control->size);
    }
}

void MControl::SetSize(MPoint newSize) {
    newSize = {MClampLength(newSize.x), MClampLength(newSize.y)};
    if (newSize == size) return;
    const MControlRef self(this);
    {
        const MEmulatedLockGuard guard(&GetRootState().lock, MERWLock::Write);
        InvalidatePlace(*this);
        StoreSize(newSize);
        TouchSizes();
    }
    if (IsRoot() && Is(MControlFlag::LayoutValid)) ResizeWindow(*this);
    if (!self) return;
    if (root->Is(MControlFlag::LayoutValid)) {
        const MEmulatedLockGuard guard(&GetRootState().lock, MERWLock::Write);
        MControl& arranged = parent && IsHeld() ? *parent : *this;
        arranged.ArrangeChildren();
        arranged.Invalidate();
    }
    NotifySizes();
}

void MControl::SetPosition(MPoint newPosition) {
    newPosition = {MClampPlace(newPosition.x), MClampPlace(newPosition.y)};
    if (newPosition == position) return;
    {
        const MEmulatedLockGuard guard(&GetRootState().lock, MERWLock::Write);
        InvalidatePlace(*this);
        position = newPosition;
        if (!IsRoot() && root->Is(MControlFlag::LayoutValid)) {
            ArrangeChildren();
            // Not by itself: in its own coordinates all of it may have been recorded before.
            InvalidatePlace(*this);
        }
    }
    MWindows* const windows = GetWindows();
    IsRoot() && windows ? windows->GetSystem().Move(*this, position) : NotifySizes();
}

void MControl::SetCollapsed(bool isCollapsed) {
    if (Is(MControlFlag::Collapsed) == isCollapsed) return;
    Set(MControlFlag::Collapsed, isCollapsed);
    if (!root->Is(MControlFlag::LayoutValid)) return;
    const MControlRef self(this);
    const MControlRef window(root);
    {
        const MEmulatedLockGuard guard(&GetRootState().lock, MERWLock::Write);
        const MPoint oldMinimum = window->minimalSize;
        MPoint newSize = window->size;
        ComputeSizes();
        for (const MAxis axis : {MAxis::X, MAxis::Y}) {
            if (MayGrow(*root)) newSize[axis] += window->minimalSize[axis] - oldMinimum[axis];
            newSize[axis] = MClampLength(std::max(newSize[axis], window->minimalSize[axis]));
        }
        window->StoreSize(newSize);
    }
    ResizeWindow(*root);
    if (window) window->UpdateLayout();
    if (self) DispatchEvent({.type = MEventType::CollapseChanged});
}

void MControl::UpdateLayout() {
    if (!root->Is(MControlFlag::LayoutValid)) return;
    const MControlRef window(root);
    const MPoint oldSize = window->size;
    if (!window->Is(MControlFlag::SizesValid)) {
        const MEmulatedLockGuard guard(&GetRootState().lock, MERWLock::Write);
        ComputeSizes();
    }
    // The platform may tell of the new size at once, and handlers then do anything.
    if (window->size != oldSize) ResizeWindow(*window.Get());
    if (!window || !window->Is(MControlFlag::LayoutValid)) return;
    {
        const MEmulatedLockGuard guard(&window->rootState->lock, MERWLock::Write);
        window->ArrangeChildren();
        window->Invalidate();
    }
    window->NotifySizes();
}

void MControl::AdjustRectangles(MRect&, MRect&) {}

void MControl::ArrangeChildren() {
    MStyle* const style = GetStyle();
    if (!style) return;
    PrepareContent();
    windowOffset = parent ? AddPlaces(parent->windowOffset, GetOffsetInParent()) : MPoint();
    style->ComputeRectangles(*this, windowRect, clientRect);
    AdjustRectangles(windowRect, clientRect);
    // All of the control is painted and hit, not only what its frame leaves.
    contentRect = windowRect;
    visibleRect =
        parent ? contentRect.Intersected(parent->visibleRect.Shifted(parent->windowOffset - windowOffset))
               : contentRect;

    for (MControl* child : children)
        if (child->Is(MControlFlag::Collapsed)) child->collapsedSize = style->GetCollapsedSize(*child);
    MRect rest = clientRect;
    for (MLayout* layout : layouts) rest = layout->Arrange(*this, rest);
    clientRect = clientRect.Shifted(clientOffset);
    if (clientControl && clientControl->Is(MControlFlag::Visible)) PlaceControl(*clientControl, rest);
    for (MControl* child : children)
        if (!child->IsHeld()) child->ArrangeChildren();
}

void MControl::PlaceControl(MControl& control, const MRect& rect) {
    MPoint newSize = control.size;
    const auto stretch = [&](MAxis axis) {
        if (IsStretched(control, axis))
            newSize[axis] = MClampLength(int64_t{rect.GetLength(axis)} -
                                         int64_t{2} * SizeComputer::GetBorder(control, axis));
    };
    stretch(MAxis::X);
    // The height of lines follows from their width, but for one that the rectangle gives.
    if (control.Is(MControlFlag::Plastic) && !IsStretched(control, MAxis::Y))
        newSize.y = control.GetPlasticSize(1, newSize.x);
    stretch(MAxis::Y);
    control.StoreSize(newSize);
    control.position = {GetPlace(control, MAxis::X, rect), GetPlace(control, MAxis::Y, rect)};
    control.ArrangeChildren();
}
