#include "foundation/base/MGuard.h"
#include "ui/control/MControl.h"
#include "ui/window/win32/MMSWindowsWindowDescriptor.h"
#include "ui/window/win32/MWin32Clipboard.h"
#include "ui/window/win32/MWin32Cursor.h"
#include "ui/window/win32/MWindowSystemMSWindows.h"

#include <array>
#include <utility>

namespace {

bool IsHeld(int key) {
    return GetAsyncKeyState(key) < 0;
}

}  // namespace

void MWindowSystemMSWindows::SetCapture(MControl& root, bool isOn) {
    MMSWindowsWindowDescriptor* const descriptor = MMSWindowsWindowDescriptor::Find(root);
    if (!descriptor || !descriptor->window) return;
    if (isOn) {
        ::SetCapture(descriptor->window);
    } else if (GetCapture() == descriptor->window) {
        descriptor->isReleasingCapture = true;
        ReleaseCapture();
        descriptor->isReleasingCapture = false;
    }
}

void MWindowSystemMSWindows::SetCursor(MControl& root, const MCursor& cursor) {
    if (!MMSWindowsWindowDescriptor::FindHandle(root)) return;
    MGuard("MWindowSystem::SetCursor", [&] {
        if (!root.GetProperty<MWin32Cursors>(MWin32Cursors::Key))
            root.SetProperty(MWin32Cursors::Key, std::make_unique<MWin32Cursors>());
        ::SetCursor(root.GetProperty<MWin32Cursors>(MWin32Cursors::Key)->Get(cursor));
    });
}

MPoint MWindowSystemMSWindows::GetCursorPosition() {
    POINT point{};
    GetCursorPos(&point);
    return {point.x, point.y};
}

MPoint MWindowSystemMSWindows::GetCursorPosition(MControl& root) {
    const HWND window = MMSWindowsWindowDescriptor::FindHandle(root);
    if (!window) return MPoint();
    POINT point{};
    GetCursorPos(&point);
    ScreenToClient(window, &point);
    return {point.x, point.y};
}

void MWindowSystemMSWindows::SetCursorPosition(MControl& root, MPoint point) {
    const HWND window = MMSWindowsWindowDescriptor::FindHandle(root);
    if (!window || GetCursorPosition(root) == point) return;
    POINT native = {point.x, point.y};
    ClientToScreen(window, &native);
    SetCursorPos(native.x, native.y);
    MSG move;
    while (PeekMessageW(&move, nullptr, WM_MOUSEMOVE, WM_MOUSEMOVE, PM_REMOVE)) {}
}

void MWindowSystemMSWindows::TrackMouseLeave(MControl& root, bool isOn) {
    const HWND window = MMSWindowsWindowDescriptor::FindHandle(root);
    if (!window || !isOn) return;
    TRACKMOUSEEVENT request = {sizeof request, TME_LEAVE, window, 0};
    TrackMouseEvent(&request);
}

MKeyModifiers MWindowSystemMSWindows::GetModifiers() {
    // The keys of the buttons are those of the hardware, whatever hand the user has.
    const bool isSwapped = GetSystemMetrics(SM_SWAPBUTTON) != 0;
    const std::array<std::pair<int, MKeyModifiers>, 6> keys = {
        {{isSwapped ? VK_RBUTTON : VK_LBUTTON, MModifierLeftButton},
         {VK_MBUTTON, MModifierMiddleButton},
         {isSwapped ? VK_LBUTTON : VK_RBUTTON, MModifierRightButton},
         {VK_CONTROL, MModifierControl},
         {VK_MENU, MModifierAlt},
         {VK_SHIFT, MModifierShift}}};
    MKeyModifiers modifiers = MModifierNone;
    for (const auto& [key, modifier] : keys)
        if (IsHeld(key)) modifiers = modifiers | modifier;
    return modifiers;
}

void MWindowSystemMSWindows::SetClipboard(const MString& format, const MBuffer& data) {
    MWin32Clipboard(background->GetWindow()).Set(format, data);
}

bool MWindowSystemMSWindows::HasClipboard(const MString& format) {
    return MWin32Clipboard::Has(format);
}

MBuffer MWindowSystemMSWindows::GetClipboard(const MString& format) {
    return MWin32Clipboard(background->GetWindow()).Get(format);
}
