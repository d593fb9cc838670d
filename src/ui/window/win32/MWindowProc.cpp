#include "ui/window/win32/MWindowProc.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/win32/MNativePath.h"
#include "ui/control/MControlRef.h"
#include "ui/control/windows/MWindows.h"
#include "ui/window/win32/MMSWindowsWindowDescriptor.h"
#include "ui/window/win32/MWin32DC.h"
#include "ui/window/win32/MWindowSystemMSWindows.h"

#include <algorithm>
#include <array>
#include <shellapi.h>

namespace {

constexpr UINT DropLimit = 1024;    // of characters in a path
constexpr int TitleLimit = 256;     // of characters looked at
constexpr UINT DPIChanged = 0x2E0;  // WM_DPICHANGED of Windows 8.1

struct Message {
    HWND window;
    UINT id;
    WPARAM wParam;
    LPARAM lParam;

    [[nodiscard]] LRESULT HandleByDefault() const { return DefWindowProcW(window, id, wParam, lParam); }
    /// Two signed coordinates.
    [[nodiscard]] MPoint GetPoint() const {
        return {static_cast<int16_t>(LOWORD(lParam)), static_cast<int16_t>(HIWORD(lParam))};
    }
};

MKeyModifiers GetModifiers(WPARAM keys) {
    constexpr std::array<std::pair<WPARAM, MKeyModifiers>, 5> masks = {{{MK_LBUTTON, MModifierLeftButton},
                                                                        {MK_MBUTTON, MModifierMiddleButton},
                                                                        {MK_RBUTTON, MModifierRightButton},
                                                                        {MK_CONTROL, MModifierControl},
                                                                        {MK_SHIFT, MModifierShift}}};
    MKeyModifiers modifiers = GetKeyState(VK_MENU) < 0 ? MModifierAlt : MModifierNone;
    for (const auto& [native, modifier] : masks)
        if (keys & native) modifiers = modifiers | modifier;
    return modifiers;
}

/// The system has down, up and double click of the left, then of the right and the middle button.
MEventType GetMouseEvent(UINT message) {
    if (message == WM_MOUSEMOVE) return MEventType::MouseMove;
    const UINT index = message - WM_LBUTTONDOWN;
    return static_cast<MEventType>(index % 3 * 3 + index / 3);
}

/// One root and one message for it. Handlers may end the root; nothing of it is used after they were called.
class Handler final {
public:
    Handler(const Message& message, MControl& root, MMSWindowsWindowDescriptor& descriptor)
        : message(message),
          root(root),
          descriptor(descriptor),
          system(descriptor.system),
          messages(system.GetMessages()) {}

    LRESULT Handle();

private:
    void OnMove();
    void OnSize();
    void OnFocusLost();
    void OnPaint();
    LRESULT OnKey(MEventType type);
    void OnSizing() const;
    void OnWheel();
    void OnCaptureChanged();
    LRESULT OnDroppedFiles();

    const Message& message;
    MControl& root;
    MMSWindowsWindowDescriptor& descriptor;
    MWindowSystemMSWindows& system;
    MWindowMessages& messages;
};

LRESULT Handler::Handle() {
    switch (message.id) {
    case WM_CREATE: return 0;
    case WM_DESTROY: return 1;
    case WM_NCDESTROY:
        descriptor.painter->OnWindowDestroyed();
        descriptor.window = nullptr;
        return message.HandleByDefault();
    case WM_MOVE: OnMove(); return message.HandleByDefault();
    case WM_SIZE: OnSize(); return message.HandleByDefault();
    case WM_SETFOCUS: messages.OnActivated(root); return 0;
    case WM_KILLFOCUS: OnFocusLost(); return 0;
    case WM_MOUSEACTIVATE:
        // Whether a modal window closes or comes to the front is not the system's to decide.
        return MWindows::GetInstance()->IsBlocked(root) ? MA_NOACTIVATE : message.HandleByDefault();
    case WM_PAINT: OnPaint(); return 0;
    case WM_CLOSE: messages.OnCloseRequested(root); return 0;
    // Background and pointer are done, and every point is in the client area, HTCLIENT.
    case WM_ERASEBKGND:
    case WM_SETCURSOR:
    case WM_NCHITTEST: return 1;
    case WM_HELP: return 0;
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN: return OnKey(MEventType::KeyDown);
    case WM_KEYUP:
    case WM_SYSKEYUP: return OnKey(MEventType::KeyUp);
    case WM_CHAR:
        if (messages.OnCharacter(root, static_cast<char16_t>(message.wParam))) return 0;
        return message.HandleByDefault();
    case WM_SYSCOMMAND:
        // Looking for a menu, by Alt or F10, would stop everything until the next key. There is only the
        // window's own, by Alt with the space bar.
        if ((message.wParam & 0xFFF0) == SC_KEYMENU && message.lParam != ' ') return 0;
        return message.HandleByDefault();
    case WM_MOUSEMOVE:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP:
    case WM_RBUTTONDBLCLK:
    case WM_MBUTTONDOWN:
    case WM_MBUTTONUP:
    case WM_MBUTTONDBLCLK:
        messages.OnMouse(root, GetMouseEvent(message.id), message.GetPoint(), GetModifiers(message.wParam));
        return 0;
    case WM_MOUSEWHEEL: OnWheel(); return 0;
    case WM_MOUSELEAVE: messages.OnMouseLeave(root); return 0;
    case WM_SIZING: OnSizing(); return 1;
    case WM_CAPTURECHANGED: OnCaptureChanged(); return 0;
    case WM_DROPFILES: return OnDroppedFiles();
    // Sizes are those of the style, on every monitor.
    case DPIChanged: return 0;
    case WM_SETTINGCHANGE: MWindows::GetInstance()->UpdateDesktop(); return 0;
    case MWindowMessageShow: system.Show(root); return 0;
    case MWindowMessageHide: system.Hide(root); return 0;
    default: return message.HandleByDefault();
    }
}

void Handler::OnMove() {
    // A minimized window is put far outside of the screen.
    if (IsIconic(message.window)) return;
    const MPoint place = message.GetPoint();
    POINT point = {place.x, place.y};
    MapWindowPoints(GetAncestor(message.window, GA_PARENT), HWND_DESKTOP, &point, 1);
    messages.OnMoved(root, {point.x, point.y});
}

void Handler::OnSize() {
    if (message.wParam == SIZE_RESTORED) {
        messages.OnSized(root, {LOWORD(message.lParam), HIWORD(message.lParam)});
    } else if (message.wParam == SIZE_MAXIMIZED) {
        // The system would cover the task bar with a window that has no frame.
        const MControlRef alive(&root);
        ShowWindow(message.window, SW_SHOWNORMAL);
        if (alive) system.Maximize(root);
    }
}

void Handler::OnFocusLost() {
    POINT cursor{};
    GetCursorPos(&cursor);
    const HWND under = WindowFromPoint(cursor);
    std::array<wchar_t, TitleLimit + 1> title{};
    if (!MGetWindowRoot(under)) GetWindowTextW(under, title.data(), static_cast<int>(title.size()));
    messages.OnDeactivated(root, MGetWindowRoot(reinterpret_cast<HWND>(message.wParam)),
                           MFromWide(title.data()));
}

void Handler::OnPaint() {
    RECT dirty;
    if (!GetUpdateRect(message.window, &dirty, FALSE)) return;
    const MControlRef alive(&root);
    const std::shared_ptr<MWindowPainter> painter = descriptor.painter;
    // The system lets only that through which it asks for, and all of a new picture is painted.
    if (!painter->HasPicture(root.GetShownSize())) InvalidateRect(message.window, nullptr, FALSE);
    PAINTSTRUCT paint;
    if (const HDC context = BeginPaint(message.window, &paint)) {
        const MRect shown =
            painter->PaintWindow(root, {dirty.left, dirty.top, dirty.right - 1, dirty.bottom - 1});
        if (painter->GetBitmap()) MWin32DC::Borrow(context).Show(*painter->GetBitmap(), shown);
        EndPaint(message.window, &paint);
    }
    if (!alive) return;
    const bool isTarget = GetWindowLongPtrW(message.window, GWL_EXSTYLE) & WS_EX_ACCEPTFILES;
    if (isTarget != root.Is(MControlFlag::AcceptsFiles)) DragAcceptFiles(message.window, !isTarget);
}

LRESULT Handler::OnKey(MEventType type) {
    if (messages.OnKey(root, type, static_cast<int32_t>(message.wParam))) return 0;
    return message.HandleByDefault();
}

void Handler::OnSizing() const {
    RECT& frame = *reinterpret_cast<RECT*>(message.lParam);
    const auto clamp = [](LONG length, int32_t minimum, int32_t maximum) {
        const int64_t least = int64_t{minimum} + 1;
        return static_cast<LONG>(std::clamp<int64_t>(length, least, std::max(least, int64_t{maximum} + 1)));
    };
    const LONG width = clamp(frame.right - frame.left, root.minimalSize.x, root.maximalSize.x);
    const LONG height = clamp(frame.bottom - frame.top, root.minimalSize.y, root.maximalSize.y);
    const WPARAM edge = message.wParam;
    if (edge == WMSZ_LEFT || edge == WMSZ_TOPLEFT || edge == WMSZ_BOTTOMLEFT)
        frame.left = frame.right - width;
    else
        frame.right = frame.left + width;
    if (edge == WMSZ_TOP || edge == WMSZ_TOPLEFT || edge == WMSZ_TOPRIGHT)
        frame.top = frame.bottom - height;
    else
        frame.bottom = frame.top + height;
}

void Handler::OnWheel() {
    messages.OnMouse(root, MEventType::Wheel, system.GetCursorPosition(root), system.GetModifiers(),
                     static_cast<int16_t>(HIWORD(message.wParam)));
}

void Handler::OnCaptureChanged() {
    // What the window does by itself, releasing the mouse or taking it again, is no loss.
    if (descriptor.isReleasingCapture || reinterpret_cast<HWND>(message.lParam) == message.window) return;
    messages.OnCaptureLost(root);
}

LRESULT Handler::OnDroppedFiles() {
    const auto drop = reinterpret_cast<HDROP>(message.wParam);
    constexpr UINT All = 0xFFFFFFFF;
    MList<MString> paths;
    for (UINT i = 0; i < DragQueryFileW(drop, All, nullptr, 0); ++i) {
        std::array<wchar_t, DropLimit + 1> path{};
        // The beginning of a longer one would be another file.
        if (DragQueryFileW(drop, i, nullptr, 0) > DropLimit) continue;
        DragQueryFileW(drop, i, path.data(), DropLimit + 1);
        paths.Add(MFromWide(path.data()));
    }
    POINT point{};
    DragQueryPoint(drop, &point);
    const bool isTaken = !paths.IsEmpty() && messages.OnFilesDropped(root, paths, {point.x, point.y});
    const LRESULT result = isTaken ? 0 : message.HandleByDefault();
    DragFinish(drop);
    return result;
}

}  // namespace

LRESULT CALLBACK MWindowProc(HWND window, UINT id, WPARAM wParam, LPARAM lParam) {
    const Message message = {window, id, wParam, lParam};
    auto* const root = reinterpret_cast<MControl*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    MMSWindowsWindowDescriptor* const descriptor = root ? MMSWindowsWindowDescriptor::Find(*root) : nullptr;
    if (!descriptor) return message.HandleByDefault();
    LRESULT result = 0;
    const bool isHandled = MGuard("MWindowProc (messages)", [&] {
        const MMessageLoopCounter::Scope level(descriptor->loopCounter);
        result = Handler(message, *root, *descriptor).Handle();
    });
    // The system would ask for that forever.
    if (!isHandled && id == WM_PAINT) ValidateRect(window, nullptr);
    return result;
}

MControl* MGetWindowRoot(HWND window) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != GetCurrentProcessId() ||
        GetWindowLongPtrW(window, GWLP_WNDPROC) != reinterpret_cast<LONG_PTR>(&MWindowProc))
        return nullptr;
    return reinterpret_cast<MControl*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}
