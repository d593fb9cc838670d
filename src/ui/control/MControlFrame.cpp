// Windows without a frame of the platform move and resize themselves. Both follow the pointer by its place on
// the screen, since that in the window changes with every step.

#include "ui/control/MControl.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/windows/MWindows.h"

#include <algorithm>

namespace {

/// Moves the edges that are dragged by so much, as far as the length stays within its limits. Returns how
/// far.
int32_t DragEdge(int32_t& low, int32_t& high, bool isLow, bool isHigh, int32_t delta, int32_t least,
                 int32_t most) {
    const int32_t length = high - low + 1;
    int32_t change = isLow ? -delta : isHigh ? delta : 0;
    change = std::clamp(length + change, std::min(least, length), std::max(most, length)) - length;
    if (isLow)
        low -= change;
    else
        high += change;
    return isLow ? -change : change;
}

}  // namespace

void MControl::BeginWindowMove(MPoint point) {
    MWindows* const windows = GetWindows();
    if (!windows || !IsRoot() || windows->GetSystem().IsMaximized(*this)) return;
    GetRootState().dragAnchor = point;
    flags.Set(MControlFlag::WindowMoving, true);
    SetCapture(this);
}

void MControl::BeginWindowResize(MPoint point, uint8_t borders) {
    MWindows* const windows = GetWindows();
    if (!windows || !IsRoot() || windows->GetSystem().IsMaximized(*this)) return;
    MControlRoot& state = GetRootState();
    state.windowRectSaved = windows->GetSystem().GetFrame(*this);
    position = state.windowRectSaved.GetTopLeft();
    state.dragAnchor = position + point;
    state.resizeBorders = borders;
    flags.Set(MControlFlag::WindowResizing, true);
    if (!Is(MControlFlag::LiveResizing)) DrawFrame();
    SetCapture(this);
}

/// Shows the outline of the window to be, or takes it away again.
void MControl::DrawFrame() {
    const MRect& frame = GetRootState().windowRectSaved;
    GetWindows()->GetSystem().DrawDragFrame(*this, frame.left, frame.top, frame.GetWidth(),
                                            frame.GetHeight());
}

/// The pointer has moved.
void MControl::AdvanceFrame() {
    MWindows* const windows = GetWindows();
    if (!windows) return;
    MControlRoot& state = GetRootState();
    const MPoint pointer = windows->GetSystem().GetCursorPosition();
    if (Is(MControlFlag::WindowMoving)) return windows->GetSystem().Move(*this, pointer - state.dragAnchor);

    MRect frame = state.windowRectSaved;
    const MPoint delta = pointer - state.dragAnchor;
    const uint8_t borders = state.resizeBorders;
    const MPoint moved{DragEdge(frame.left, frame.right, borders & MBorderLeft, borders & MBorderRight,
                                delta.x, std::max(minimalSize.x, 1), maximalSize.x),
                       DragEdge(frame.top, frame.bottom, borders & MBorderTop, borders & MBorderBottom,
                                delta.y, std::max(minimalSize.y, 1), maximalSize.y)};
    state.dragAnchor = state.dragAnchor + moved;
    if (frame == state.windowRectSaved) return;
    if (!Is(MControlFlag::LiveResizing)) DrawFrame();
    state.windowRectSaved = frame;
    Is(MControlFlag::LiveResizing) ? ApplyFrame() : DrawFrame();
}

/// Gives the window the frame that was dragged.
void MControl::ApplyFrame() {
    const MControlRef self(this);
    const MRect frame = GetRootState().windowRectSaved;
    MWindowSystem& system = GetWindows()->GetSystem();
    if (frame.GetTopLeft() != position) system.Move(*this, frame.GetTopLeft());
    if (!self) return;
    position = frame.GetTopLeft();
    const MPoint newSize{frame.GetWidth(), frame.GetHeight()};
    if (newSize == size) return;
    system.Resize(*this, newSize);
    if (self) OnWindowSized(newSize);
}

/// The button was released, or the mouse was taken away.
void MControl::EndFrame() {
    const MControlRef self(this);
    const bool isResizing = Is(MControlFlag::WindowResizing);
    if (!isResizing && !Is(MControlFlag::WindowMoving)) return;
    flags.Set(MControlFlag::WindowMoving, false);
    flags.Set(MControlFlag::WindowResizing, false);
    ClearButtons();
    ReleaseCapture();
    if (!self || !isResizing || !GetWindows()) return;
    if (!Is(MControlFlag::LiveResizing)) {
        DrawFrame();
        ApplyFrame();
    }
    if (!self) return;
    GetRootState().resizeBorders = 0;
    FlushPaint();
}

uint8_t MControl::HitTestWindowBorder(MPoint point) {
    MWindows* const windows = GetWindows();
    if (!windows || !IsRoot() || !Is(MControlFlag::Resizable) || !windowRect.Contains(point)) return 0;
    if (windows->GetSystem().IsMaximized(*this) || FindChildAt(point)) return 0;
    const MControlRoot& state = GetRootState();
    const int32_t width = state.resizeBorderWidth;
    int32_t borders = 0;
    if (state.flexibility & MFlexibleX) {
        if (point.x < windowRect.left + width) borders |= MBorderLeft;
        if (point.x > windowRect.right - width) borders |= MBorderRight;
    }
    if (state.flexibility & MFlexibleY) {
        if (point.y < windowRect.top + width) borders |= MBorderTop;
        if (point.y > windowRect.bottom - width) borders |= MBorderBottom;
    }
    return static_cast<uint8_t>(borders);
}

void MControl::OnWindowSized(MPoint newSize) {
    if (newSize.x < 1 || newSize.y < 1) newSize = minimalSize;
    if (newSize == size) return;
    if (!Is(MControlFlag::Collapsed))
        StoreSize({std::max(newSize.x, minimalSize.x), std::max(newSize.y, minimalSize.y)});
    UpdateLayout();
}
