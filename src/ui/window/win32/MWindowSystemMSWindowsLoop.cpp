#include "ui/control/MControl.h"
#include "ui/control/MControlRef.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/windows/MWindows.h"
#include "ui/window/win32/MMSWindowsWindowDescriptor.h"
#include "ui/window/win32/MWindowProc.h"
#include "ui/window/win32/MWindowSystemMSWindows.h"

namespace {

/// The loops around this one have to end too.
void PassQuitOn(const MSG& message) {
    PostQuitMessage(static_cast<int>(message.wParam));
}

}  // namespace

void MWindowSystemMSWindows::Translate(const MSG& message) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
    background->CheckAlarm();
}

int32_t MWindowSystemMSWindows::ProcessPending() {
    if (loopCounter->IsTooDeep()) return 0;
    const MMessageLoopCounter::Scope level(loopCounter);
    const MControl* const only = owner->messageFilter;
    const HWND filter = only ? MMSWindowsWindowDescriptor::FindHandle(*only) : nullptr;
    int32_t count = 0;
    int32_t paintsInRow = 0;
    MSG message;
    while (count < MaximumPending && paintsInRow < MaximumPaintsInRow &&
           PeekMessageW(&message, filter, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PassQuitOn(message);
            break;
        }
        const bool isPaint = message.message == WM_PAINT || message.message == WM_TIMER;
        paintsInRow = isPaint ? paintsInRow + 1 : 0;
        ++count;
        Translate(message);
    }
    return count;
}

void MWindowSystemMSWindows::RunLoop(MControl& root) {
    const MMessageLoopCounter::Scope level(loopCounter);
    const MControlRef alive(&root);
    const auto address = reinterpret_cast<LPARAM>(&root);
    MSG message;
    while (alive && root.GetRootState().modalResult == MModalValue::None) {
        const BOOL result = GetMessageW(&message, nullptr, 0, 0);
        if (result == 0) PassQuitOn(message);
        if (result <= 0) return;
        if (message.message == MWindowMessageEndLoop && message.lParam == address) return;
        Translate(message);
    }
}

void MWindowSystemMSWindows::ExitLoop(MControl& root, MModalValue result) {
    if (root.GetRootState().modalResult != MModalValue::None) return;
    root.GetRootState().modalResult = result;
    const HWND window = MMSWindowsWindowDescriptor::FindHandle(root);
    PostMessageW(window ? window : background->GetWindow(), MWindowMessageEndLoop, 0,
                 reinterpret_cast<LPARAM>(&root));
}

void MWindowSystemMSWindows::RunApplication() {
    const MMessageLoopCounter::Scope level(loopCounter);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) Translate(message);
}

void MWindowSystemMSWindows::Quit() {
    PostQuitMessage(0);
}
