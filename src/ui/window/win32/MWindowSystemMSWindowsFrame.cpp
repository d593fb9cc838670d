#include "foundation/base/MGuard.h"
#include "foundation/events/MLockGuard.h"
#include "foundation/files/win32/MNativePath.h"
#include "ui/control/MControl.h"
#include "ui/window/win32/MMSWindowsWindowDescriptor.h"
#include "ui/window/win32/MWin32Objects.h"
#include "ui/window/win32/MWindowProc.h"
#include "ui/window/win32/MWindowSystemMSWindows.h"

#include <utility>

namespace {

constexpr UINT PlaceOnly = SWP_NOZORDER | SWP_NOACTIVATE;

void PutFrame(HWND window, const MRect& frame, UINT flags = PlaceOnly) {
    POINT place = {frame.left, frame.top};
    MapWindowPoints(HWND_DESKTOP, GetAncestor(window, GA_PARENT), &place, 1);
    SetWindowPos(window, nullptr, place.x, place.y, frame.GetWidth(), frame.GetHeight(), flags);
}

}  // namespace

bool MWindowSystemMSWindows::IsVisible(MControl& root) {
    return IsWindowVisible(MMSWindowsWindowDescriptor::FindHandle(root));
}

void MWindowSystemMSWindows::SetCaption(MControl& root) {
    if (const HWND window = MMSWindowsWindowDescriptor::FindHandle(root))
        SetWindowTextW(window, MToWide(MTranslate(root.GetCaption())).c_str());
}

void MWindowSystemMSWindows::Move(MControl& root, MPoint point) {
    const HWND window = MMSWindowsWindowDescriptor::FindHandle(root);
    if (!window) return;
    root.position = point;
    PutFrame(window, MRect::FromSize(point.x, point.y, 0, 0), PlaceOnly | SWP_NOSIZE);
}

void MWindowSystemMSWindows::Resize(MControl& root, MPoint size) {
    const MMSWindowsWindowDescriptor* const descriptor = MMSWindowsWindowDescriptor::Find(root);
    if (!descriptor || !descriptor->window) return;
    if (descriptor->fullScreen)
        PutFrame(descriptor->window,
                 MRect::FromSize(0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)));
    else
        SetWindowPos(descriptor->window, nullptr, 0, 0, size.x, size.y, PlaceOnly | SWP_NOMOVE);
}

void MWindowSystemMSWindows::SetShape(MControl& root, const MAlphaMask& mask) {
    const HWND window = MMSWindowsWindowDescriptor::FindHandle(root);
    if (!window) return;
    MGuard("MWindowSystem::SetShape", [&] {
        MWin32Region region(mask);
        if (SetWindowRgn(window, region.GetRegion(), TRUE)) region.Release();
    });
}

MRect MWindowSystemMSWindows::GetFrame(MControl& root) {
    const HWND window = MMSWindowsWindowDescriptor::FindHandle(root);
    RECT frame;
    if (!window || !GetWindowRect(window, &frame)) return MRect();
    // A minimized window is far outside of the screen; this is where it will be again.
    if (IsIconic(window))
        return MRect::FromSize(root.position.x, root.position.y, root.GetShownSize().x,
                               root.GetShownSize().y);
    return {frame.left, frame.top, frame.right - 1, frame.bottom - 1};
}

void MWindowSystemMSWindows::Maximize(MControl& root) {
    MMSWindowsWindowDescriptor* const descriptor = MMSWindowsWindowDescriptor::Find(root);
    if (!descriptor || !descriptor->window) return;
    const MRect frame = GetFrame(root);
    if (!std::exchange(descriptor->maximized, true)) descriptor->savedFrame = frame;
    const MPoint center = {(frame.left + frame.right) / 2, (frame.top + frame.bottom) / 2};
    PutFrame(descriptor->window, GetWorkArea(center));
}

void MWindowSystemMSWindows::Restore(MControl& root) {
    MMSWindowsWindowDescriptor* const descriptor = MMSWindowsWindowDescriptor::Find(root);
    if (!descriptor || !descriptor->window) return;
    if (IsIconic(descriptor->window)) {
        ShowWindow(descriptor->window, SW_RESTORE);
    } else if (std::exchange(descriptor->maximized, false) && !descriptor->savedFrame.IsEmpty()) {
        PutFrame(descriptor->window, descriptor->savedFrame);
    }
}

void MWindowSystemMSWindows::Minimize(MControl& root) {
    if (const HWND window = MMSWindowsWindowDescriptor::FindHandle(root)) ShowWindow(window, SW_MINIMIZE);
}

bool MWindowSystemMSWindows::IsMaximized(MControl& root) {
    const MMSWindowsWindowDescriptor* const descriptor = MMSWindowsWindowDescriptor::Find(root);
    return descriptor && descriptor->maximized;
}

bool MWindowSystemMSWindows::IsMinimized(MControl& root) {
    return IsIconic(MMSWindowsWindowDescriptor::FindHandle(root));
}

void MWindowSystemMSWindows::PostFromThread(const MControl& root, UINT message) {
    const MLockGuard guard(&handlesLock);
    const auto found = handles.find(&root);
    if (found != handles.end()) PostMessageW(found->second, message, 0, 0);
}

void MWindowSystemMSWindows::Show(MControl& root) {
    if (GetCurrentThreadId() != thread) {
        PostFromThread(root, MWindowMessageShow);
    } else if (const HWND window = MMSWindowsWindowDescriptor::FindHandle(root)) {
        ShowWindow(window, root.Is(MControlFlag::AcceptsFocus) ? SW_SHOW : SW_SHOWNA);
    }
}

void MWindowSystemMSWindows::Hide(MControl& root) {
    if (GetCurrentThreadId() != thread) {
        PostFromThread(root, MWindowMessageHide);
    } else if (const HWND window = MMSWindowsWindowDescriptor::FindHandle(root)) {
        // The system would leave the mouse to a window that cannot be seen.
        if (GetCapture() == window) ReleaseCapture();
        ShowWindow(window, SW_HIDE);
        messages.ArmHoldOff();
    }
}

void MWindowSystemMSWindows::Activate(MControl& root) {
    const MMSWindowsWindowDescriptor* const descriptor = MMSWindowsWindowDescriptor::Find(root);
    if (!descriptor || !IsWindowVisible(descriptor->window)) return;
    const HWND window = descriptor->window;
    const HWND foreground = descriptor->nativeParent ? descriptor->nativeParent : window;
    const bool takesFocus = root.Is(MControlFlag::AcceptsFocus);
    ReleaseCapture();
    SetForegroundWindow(foreground);
    if (takesFocus) SetFocus(window);
}

MControl* MWindowSystemMSWindows::GetActiveRoot() {
    return MGetWindowRoot(GetForegroundWindow());
}
