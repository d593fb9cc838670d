#include "foundation/base/MGuard.h"
#include "ui/control/MControl.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/MFlagScope.h"
#include "ui/control/windows/MWindows.h"
#include "ui/image/MAlphaMask.h"

#include <algorithm>
#include <utility>

MWindows* MControl::GetWindows() const {
    return root->Is(MControlFlag::HasWindow) ? MWindows::GetInstance() : nullptr;
}

MPoint MControl::GetScreenPoint(MPoint ownPoint) const {
    MWindows* const windows = GetWindows();
    const MPoint point = GetWindowPoint(ownPoint);
    return windows ? windows->GetSystem().GetFrame(*root).GetTopLeft() + point : point;
}

MList<MControl, MListPointers> MControl::GetChildWindows() const {
    MList<MControl, MListPointers> list;
    const MWindows* const windows = GetWindows();
    if (!windows) return list;
    for (MControl* other : windows->GetRoots())
        if (other->GetRootState().windowParent.Get() == this) list.Add(other);
    return list;
}

bool MControl::HasOpenChildWindow() const {
    const auto list = GetChildWindows();
    return std::any_of(list.begin(), list.end(), [this](MControl* child) {
        // One that has its result only waits for its loop to end.
        const bool isEnding =
            child->Is(MControlFlag::ModalRunning) && child->GetRootState().modalResult != MModalValue::None;
        return !isEnding && GetWindows()->GetSystem().IsVisible(*child);
    });
}

/// A window that was opened over this one cannot be its parent.
void MControl::SetWindowParent(MControl* windowParent) {
    MControl* const newParent = windowParent ? windowParent->root : nullptr;
    MControl* above = newParent;
    while (above && above != this) above = above->GetRootState().windowParent.Get();
    GetRootState().windowParent.Set(above ? nullptr : newParent);
}

void MControl::CreateWindow(MControl* windowParent, intptr_t nativeParent) {
    MWindows* const windows = MWindows::GetInstance();
    if (!windows || !IsRoot() || Is(MControlFlag::HasWindow)) return;
    MControlRoot& state = GetRootState();
    SetWindowParent(windowParent);
    if (!state.renderer && nativeParent) state.renderer = std::make_unique<MRenderer_ToWindow>();
    if (!state.renderer) state.renderer = std::make_unique<MRenderer_MBitmap>();
    MWindowSystem& system = windows->GetSystem();
    const intptr_t owner = windowParent ? system.GetNativeHandle(*windowParent->root) : 0;
    const MPoint first{std::max(minimalSize.x, 1), std::max(minimalSize.y, 1)};
    system.CreateWindow(*this, MTranslate(caption), first, position, nativeParent ? nativeParent : owner,
                        Is(MControlFlag::InTaskbar));
    flags.Set(MControlFlag::HasWindow, true);
    windows->AddRoot(*this);
}

void MControl::DestroyWindow() {
    MWindows* const windows = GetWindows();
    if (!windows || !IsRoot()) return;
    ReleaseCapture();
    if (Is(MControlFlag::WindowResizing) && !Is(MControlFlag::LiveResizing)) DrawFrame();
    flags.Set(MControlFlag::WindowMoving, false);
    flags.Set(MControlFlag::WindowResizing, false);
    if (Is(MControlFlag::ModalRunning)) windows->GetSystem().ExitLoop(*this, MModalValue::Cancel);
    windows->GetSystem().DestroyWindow(*this);
    flags.Set(MControlFlag::HasWindow, false);
    windows->RemoveRoot(*this);
}

void MControl::PrepareWindow() {
    MWindows* const windows = GetWindows();
    MStyle* const style = GetStyle();
    if (!windows || !IsRoot() || !style) return;
    const MControlRef self(this);
    flags.Set(MControlFlag::LayoutValid, false);
    if (controlType != MControlType::Menu) SetControlType(MControlType::Window);
    if (Is(MControlFlag::AutoSaveState) && !Is(MControlFlag::StateLoaded)) LoadWindowState();
    if (!self) return;
    if (Is(MControlFlag::Collapsed)) collapsedSize = style->GetCollapsedSize(*this);
    RebuildTabOrder();
    AttachToStyle();
    if (self && !Is(MControlFlag::SizesValid)) ComputeSizes();
    if (!self) return;
    flags.Set(MControlFlag::LayoutValid, true);
    MAlphaMask mask;
    if (GetRootState().backgroundBitmap.IsEmpty()) style->GetWindowMask(*this, mask);
    if (!mask.IsEmpty()) windows->GetSystem().SetShape(*this, mask);
    ArrangeChildren();
    PlaceWindow();
    if (self) NotifySizes();
    if (self) NotifyPrepared();
    if (!self || !Is(MControlFlag::HasWindow)) return;
    windows->GetSystem().OnWindowPrepared(*this);
    pendingFlag = false;  // what was recorded before the window was hidden
    Invalidate();
    RefreshCursor();
}

void MControl::PlaceWindow() {
    const MControlRef self(this);
    MWindowSystem& system = GetWindows()->GetSystem();
    if (system.IsMaximized(*this)) return;
    if (Is(MControlFlag::MoveToScreenCenter)) {
        const MControlRef& over = GetRootState().windowParent;
        const MRect area =
            over ? system.GetWorkArea(over->GetScreenPoint({over->size.x / 2, over->size.y / 2}))
                 : system.GetWorkArea({});
        position = {area.left + std::max(area.GetWidth() - size.x, 0) / 2,
                    area.top + std::max(area.GetHeight() - size.y, 0) / 2};
        flags.Set(MControlFlag::MoveToScreenCenter, false);
    }
    system.Resize(*this, GetShownSize());
    if (self) system.Move(*this, position);
    if (self && std::exchange(GetRootState().isMaximizedWhenPlaced, false)) system.Maximize(*this);
}

void MControl::NotifyPrepared() {
    const MControlRef self(this);
    OnPrepared();
    for (int32_t i = 0; self && i < children.GetCount(); ++i) children[i]->NotifyPrepared();
}

void MControl::ShowWindow() {
    MWindows* const windows = GetWindows();
    if (!windows || !IsRoot()) return;
    const MControlRef self(this);
    flags.Set(MControlFlag::Visible, true);
    PrepareWindow();
    if (self && !GetRootState().focusedControl) FocusNext();
    if (!self || !Is(MControlFlag::HasWindow)) return;
    windows->GetSystem().Show(*this);
    if (!self) return;
    for (MControl* child : GetChildWindows())
        if (windows->HasRoot(child) && child->Is(MControlFlag::OpenedWithParent)) child->ShowWindow();
}

void MControl::HideWindow() {
    MWindows* const windows = GetWindows();
    if (!windows || !IsRoot() || !windows->GetSystem().IsVisible(*this)) return;
    const MControlRef self(this);
    const MModalValue result = GetRootState().modalResult;
    const bool isDone = result == MModalValue::None || result == MModalValue::Ok;
    if (Is(MControlFlag::EnableSaveState) && (isDone || !Is(MControlFlag::Modal))) SaveWindowState();
    for (MControl* child : GetChildWindows()) {
        if (!windows->HasRoot(child)) continue;
        if (child->Is(MControlFlag::ModalRunning) || windows->GetSystem().IsVisible(*child))
            child->CloseWindow(MModalValue::Cancel);
    }
    if (!self || !Is(MControlFlag::HasWindow)) return;
    EndFrame();
    if (self) ReleaseCapture();
    if (self && GetRootState().hover) OnMouseLeave();
    if (!self || !Is(MControlFlag::HasWindow)) return;
    flags.Set(MControlFlag::Visible, false);
    windows->GetSystem().Hide(*this);
    if (self) NotifyHidden();
}

void MControl::OpenWindow(MControl* windowParent, bool isModal) {
    MControlRoot& state = GetRootState();
    SetWindowParent(windowParent);
    state.modalResult = MModalValue::None;
    flags.Set(MControlFlag::Modal, isModal);
    flags.Set(MControlFlag::ModalRunning, isModal);
    const MControlRef self(this);
    MWindowSystem& system = GetWindows()->GetSystem();
    system.SetOwner(*this, state.windowParent.Get(), false);
    ShowWindow();
    if (self && Is(MControlFlag::HasWindow)) system.Activate(*this);
}

MModalValue MControl::RunModal(MControl* parentControl) {
    if (!GetWindows() || !IsRoot() || Is(MControlFlag::ModalRunning)) return MModalValue::Cancel;
    const MControlRef self(this);
    MWindowSystem& system = GetWindows()->GetSystem();
    MModalValue result = MModalValue::Cancel;
    bool isInUse = false;
    {
        // Whatever handlers raise, the window must not block its owner any longer.
        const MFlagScope modal(*this, MControlFlag::Modal);
        const MFlagScope running(*this, MControlFlag::ModalRunning);
        OpenWindow(parentControl, true);
        if (self && GetWindows()) system.RunLoop(*this);
        if (!self) return MModalValue::Cancel;
        result = GetRootState().modalResult;
        // Who has gone to another program is not called back.
        isInUse = system.GetActiveRoot() != nullptr;
        HideWindow();
    }
    if (!self) return result;
    const MControlRef owner(GetRootState().windowParent.Get());
    OnHidden();
    if (isInUse && owner && owner->Is(MControlFlag::HasWindow)) system.Activate(*owner.Get());
    return result;
}

void MControl::ShowModeless(MControl* parentControl) {
    if (GetWindows() && IsRoot()) OpenWindow(parentControl, false);
}

void MControl::CloseWindow(MModalValue result) {
    MWindows* const windows = GetWindows();
    if (!windows) return;
    if (!IsRoot()) return root->CloseWindow(result);
    if (Is(MControlFlag::ModalRunning) && GetRootState().modalResult != MModalValue::None) return;
    MWindowSystem& system = windows->GetSystem();
    const MControlRef self(this);
    OnClosed();
    if (!self) return;
    if (Is(MControlFlag::ModalRunning)) return system.ExitLoop(*this, result);
    const bool wasOpen = system.IsVisible(*this);
    HideWindow();
    if (!self) return;
    // A popup whose loop is about to end is as good as closed.
    const auto& roots = windows->GetRoots();
    const bool isLast = std::none_of(roots.begin(), roots.end(), [&](MControl* other) {
        const bool isClosing =
            other->Is(MControlFlag::ModalRunning) && other->GetRootState().modalResult != MModalValue::None;
        return other != this && !isClosing && system.IsVisible(*other);
    });
    if (wasOpen && isLast && !Is(MControlFlag::KeepsApplicationAlive)) system.Quit();
    OnHidden();
}

void MControl::RequestClose() {
    const MWindows* const windows = GetWindows();
    if (!windows || windows->IsBlocked(*root)) return;
    const MControlRef self(root);
    if (self->CanClose() && self) self->CloseWindow(MModalValue::Cancel);
}

bool MControl::CanClose() {
    const MWindows* const windows = GetWindows();
    if (!Is(MControlFlag::ConfirmClose) || !windows || !windows->dialogs) return true;
    return windows->dialogs->AskYesNo(*root, MTranslate("Are you sure you want to close the application?"));
}

void MControl::FlushMessagesOfThisWindow() {
    MWindows* const windows = GetWindows();
    if (!windows) return;
    const MControlRef before(std::exchange(windows->messageFilter, root));
    // The tick may wait as well.
    FlushPaint();
    MGuard("MControl::FlushMessagesOfThisWindow", [&] { (void)windows->GetSystem().ProcessPending(); });
    windows->messageFilter = before.Get();
}
