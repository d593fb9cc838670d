#include "ui/window/win32/MWindowSystemMSWindows.h"

#include "foundation/MProductConstants.h"
#include "foundation/base/MRaise.h"
#include "foundation/events/MLockGuard.h"
#include "foundation/files/win32/MNativePath.h"
#include "foundation/module/MPlatform.h"
#include "ui/control/MControl.h"
#include "ui/control/windows/MWindows.h"
#include "ui/window/win32/MMSWindowsWindowDescriptor.h"
#include "ui/window/win32/MWin32Cursor.h"
#include "ui/window/win32/MWin32DC.h"
#include "ui/window/win32/MWindowProc.h"

#include <utility>

namespace {

constexpr const wchar_t* ClassName = L"MWindow";
/// Double clicks are told, and a child draws by its parent's context.
constexpr UINT ClassStyle = CS_DBLCLKS | CS_PARENTDC;

/// Clipped siblings, a system menu, and minimizing.
constexpr DWORD CommonStyle = WS_CLIPSIBLINGS | WS_SYSMENU | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;
constexpr DWORD PopupStyle = WS_POPUP | CommonStyle;
constexpr DWORD ChildStyle = WS_CHILD | CommonStyle;
static_assert(PopupStyle == 0x840B0000 && ChildStyle == 0x440B0000);

/// Everything that a shell without the rights of an administrator says to a window with them when files are
/// dropped; the last one has no name.
constexpr UINT DropMessages[] = {WM_DROPFILES, WM_COPYDATA, 0x49};

HINSTANCE FindInstance() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&MWindowProc), &module);
    return module;
}

/// What is shown stays shown.
void PutInto(MMSWindowsWindowDescriptor& descriptor, HWND parent, DWORD style) {
    const HWND window = descriptor.window;
    const auto state = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE)) & (WS_VISIBLE | WS_MINIMIZE);
    descriptor.nativeParent = parent;
    // A child is told so before it gets its parent, and no longer after it has lost it.
    if (!parent) SetParent(window, nullptr);
    SetWindowLongPtrW(window, GWL_STYLE, static_cast<LONG_PTR>(style | state));
    if (parent) SetParent(window, parent);
    SetWindowPos(window, nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

}  // namespace

MWindowSystemMSWindows::~MWindowSystemMSWindows() {
    background.reset();
    loopCounter.reset();
    UnregisterClassW(ClassName, instance);
}

MWindowSystem::Info MWindowSystemMSWindows::GetInfo() {
    return {"Win32 native window-system", MProductMaker};
}

void MWindowSystemMSWindows::Initialize(MWindows& newOwner) {
    owner = &newOwner;
    instance = FindInstance();
    thread = GetCurrentThreadId();
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.style = ClassStyle;
    description.lpfnWndProc = &MWindowProc;
    description.hInstance = instance;
    description.hIcon = LoadIconW(instance, MAKEINTRESOURCEW(1));
    // Any other stock brush can flash up before the first paint.
    description.hbrBackground = static_cast<HBRUSH>(GetStockObject(NULL_BRUSH));
    description.lpszClassName = ClassName;
    if (!RegisterClassExW(&description) && GetLastError() != ERROR_CLASS_ALREADY_EXISTS)
        MRaise(MExceptionGeneral, "The system does not allow this program any windows: {0}",
               MSystemErrorText());
    EnableEvents(true, true);
    background = std::make_unique<MBackgroundWindow>([this] { owner->Attend(); });
}

MRect MWindowSystemMSWindows::GetWorkArea(std::optional<MPoint> point) {
    const POINT primary{};
    const HMONITOR monitor = point ? MonitorFromPoint({point->x, point->y}, MONITOR_DEFAULTTONEAREST)
                                   : MonitorFromPoint(primary, MONITOR_DEFAULTTOPRIMARY);
    MONITORINFO description{};
    description.cbSize = sizeof description;
    if (!GetMonitorInfoW(monitor, &description)) return MRect();
    const RECT& area = description.rcWork;
    return {area.left, area.top, area.right - 1, area.bottom - 1};
}

void MWindowSystemMSWindows::CreateWindow(MControl& root, const MString& caption, MPoint size,
                                          MPoint position, intptr_t parent, bool isInTaskbar) {
    DestroyWindow(root);
    auto descriptor = std::make_unique<MMSWindowsWindowDescriptor>(*this, loopCounter);
    descriptor->fullScreen = root.Is(MControlFlag::FullScreen) && !parent;
    const MPoint place = descriptor->fullScreen ? MPoint() : position;
    const auto parentWindow = reinterpret_cast<HWND>(parent);
    if (!MGetWindowRoot(parentWindow)) descriptor->nativeParent = parentWindow;
    const HWND window = CreateWindowExW(isInTaskbar ? 0 : WS_EX_TOOLWINDOW, ClassName,
                                        MToWide(caption).c_str(), PopupStyle, place.x, place.y, size.x,
                                        size.y, reinterpret_cast<HWND>(parent), nullptr, instance, nullptr);
    if (!window)
        MRaise(MExceptionGeneral,
               "Sorry, your system is out of resources.\n\nInformation: Could not create a window.");
    for (const UINT message : DropMessages)
        ChangeWindowMessageFilterEx(window, message, MSGFLT_ALLOW, nullptr);
    descriptor->window = window;
    if (acceleration)
        if (auto painter = acceleration->CreatePainter({nullptr, reinterpret_cast<intptr_t>(window), 0}))
            descriptor->painter = std::move(painter);
    root.SetProperty(MMSWindowsWindowDescriptor::Key, std::move(descriptor));
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&root));
    const MLockGuard guard(&handlesLock);
    handles[&root] = window;
}

void MWindowSystemMSWindows::DestroyWindow(MControl& root) {
    const MMSWindowsWindowDescriptor* const descriptor = MMSWindowsWindowDescriptor::Find(root);
    if (!descriptor) return;
    {
        const MLockGuard guard(&handlesLock);
        handles.erase(&root);
    }
    descriptor->painter->OnWindowDestroyed();
    if (const HWND window = descriptor->window) {
        const MMessageLoopCounter::Scope level(loopCounter);
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        ::DestroyWindow(window);
    }
    root.SetProperty(MWin32Cursors::Key, nullptr);
    root.SetProperty(MMSWindowsWindowDescriptor::Key, nullptr);
}

void MWindowSystemMSWindows::SetOwner(MControl& root, MControl* newOwner, bool keepTopmost) {
    MMSWindowsWindowDescriptor* const descriptor = MMSWindowsWindowDescriptor::Find(root);
    if (!descriptor || !descriptor->window) return;
    const HWND window = descriptor->window;
    const HWND ownerWindow = newOwner ? MMSWindowsWindowDescriptor::FindHandle(*newOwner) : nullptr;
    if (keepTopmost && ownerWindow) return PutInto(*descriptor, ownerWindow, ChildStyle);
    if (MGetWindowRoot(descriptor->nativeParent)) PutInto(*descriptor, nullptr, PopupStyle);
    // One that is embedded elsewhere has its place there.
    if (GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD) return;
    const HWND above = ownerWindow ? ownerWindow : descriptor->nativeParent;
    SetWindowLongPtrW(window, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(above));
}

void MWindowSystemMSWindows::SetNativeParent(MControl& root, intptr_t handle) {
    MMSWindowsWindowDescriptor* const descriptor = MMSWindowsWindowDescriptor::Find(root);
    if (!descriptor || !descriptor->window) return;
    PutInto(*descriptor, reinterpret_cast<HWND>(handle), handle ? ChildStyle : PopupStyle);
}

intptr_t MWindowSystemMSWindows::GetNativeHandle(MControl& root) {
    return reinterpret_cast<intptr_t>(MMSWindowsWindowDescriptor::FindHandle(root));
}

int32_t MWindowSystemMSWindows::GetScalePercent() {
    // Windows 7 and 8 have one resolution for all.
    using GetDpiForSystemFunction = UINT(WINAPI*)();
    const auto function = reinterpret_cast<GetDpiForSystemFunction>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), "GetDpiForSystem")));
    const int32_t resolution = function ? static_cast<int32_t>(function())
                                        : GetDeviceCaps(MWin32DC::OfWindow(nullptr).GetContext(), LOGPIXELSX);
    return (resolution * 100 + USER_DEFAULT_SCREEN_DPI / 2) / USER_DEFAULT_SCREEN_DPI;
}

std::optional<bool> MWindowSystemMSWindows::PrefersDark() {
    // There since Windows 10.
    DWORD usesLight = 1;
    DWORD size = sizeof(usesLight);
    const LSTATUS status =
        RegGetValueW(HKEY_CURRENT_USER, LR"(Software\Microsoft\Windows\CurrentVersion\Themes\Personalize)",
                     L"AppsUseLightTheme", RRF_RT_REG_DWORD, nullptr, &usesLight, &size);
    if (status != ERROR_SUCCESS) return std::nullopt;
    return usesLight == 0;
}
