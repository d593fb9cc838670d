#include "foundation/base/MGuard.h"
#include "ui/control/MControl.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/windows/MWindows.h"

#include <utility>

MControl* MControl::GetCapture() const {
    return GetRootState().captured;
}

void MControl::SetCapture(MControl* control) {
    MControl* const old = GetRootState().captured;
    if (control == old) return;
    if (!control) return ReleaseCapture();
    ClearCapture(GetRootState());
    // The releases of its buttons will not come to the one that had the mouse.
    if (old) old->ClearButtons();
    GetRootState().captured = control;
    for (MControl* on = control; on->parent; on = on->parent) on->parent->capture = on;
    if (MWindows* const windows = GetWindows()) windows->GetSystem().SetCapture(*root, true);
}

void MControl::ReleaseCapture() {
    if (!GetRootState().captured) return;
    ClearCapture(GetRootState());
    if (MWindows* const windows = GetWindows()) windows->GetSystem().SetCapture(*root, false);
}

void MControl::ClearCapture(MControlRoot& state) {
    MControl* on = std::exchange(state.captured, nullptr);
    for (; on; on = on->parent) on->capture = nullptr;
}

void MControl::OnCaptureLost() {
    const MControlRef self(this);
    const MControlRef holder(GetRootState().captured);
    ClearCapture(GetRootState());
    if (IsRoot()) EndFrame();
    if (!self) return;
    if (IsRoot() && holder && holder.Get() != this) return holder->OnCaptureLost();

    ClearButtons();
    const MControlRef hover(GetRootState().hover);
    if (hover.Get() != this) DispatchEvent({.type = MEventType::MouseLeave, .point = GetMousePoint()});
    if (hover) hover->OnMouseLeave();
}

void MControl::StartDragDrop() {
    MGuard("MControl::StartDragDrop", [this] {
        MWindows* const windows = MWindows::GetInstance();
        if (!windows) return;
        const MControlRef self(this);
        if (windows->dragSource) windows->dragSource->CancelDragDrop();
        if (!self) return;
        windows->dragSource = this;
        ReleaseCapture();
        RefreshCursor();
    });
}

bool MControl::DragOver(MControl& source, const MSystemEvent& event) {
    constexpr int32_t Buttons = MModifierLeftButton | MModifierMiddleButton | MModifierRightButton;
    // The button was released outside of all windows.
    if ((event.modifiers & Buttons) == 0)
        source.CancelDragDrop();
    else
        (void)OnDragOver(source, GetOwnPoint(event.point));
    return true;
}

void MControl::FinishDragDrop(MPoint windowPoint) {
    MWindows* const windows = MWindows::GetInstance();
    if (!windows || !windows->dragSource) return;
    const MControlRef self(this);
    const MControlRef source(std::exchange(windows->dragSource, nullptr));
    const MPoint point = GetOwnPoint(windowPoint);
    bool isAccepted = false;
    MGuard("MControl::FinishDragDrop", [&] { isAccepted = OnDropAccepted(*source.Get(), point); });
    if (source) source->EndDrag(self.Get(), point, isAccepted);
}

void MControl::CancelDragDrop() {
    MWindows* const windows = MWindows::GetInstance();
    if (!windows || !windows->dragSource) return;
    std::exchange(windows->dragSource, nullptr)->EndDrag(nullptr, {}, false);
}

void MControl::EndDrag(MControl* target, MPoint point, bool isAccepted) {
    const MControlRef self(this);
    MGuard("MControl::FinishDragDrop", [&] { OnDragFinished(target, point, isAccepted); });
    if (!self) return;
    flags.Set(MControlFlag::LeftDown, false);
    ReleaseCapture();
    if (self) RefreshCursor();
}

bool MControl::OnDragOver(MControl&, MPoint) {
    return false;
}

bool MControl::OnDropAccepted(MControl&, MPoint) {
    return false;
}

void MControl::OnDragFinished(MControl*, MPoint, bool) {}

bool MControl::DropFiles(const MList<MString>& files, MPoint windowPoint) {
    return FindControlAt(windowPoint).OnFilesDropped(files);
}

bool MControl::OnFilesDropped(const MList<MString>& files) {
    return parent && parent->OnFilesDropped(files);
}
