// The loop: what happens next, and waiting for it.

#include "foundation/base/MGuard.h"
#include "ui/control/MControlRef.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/windows/MWindows.h"
#include "ui/window/x11/MWindowSystemX11.h"
#include "ui/window/x11/MXWindow.h"

#include <algorithm>
#include <utility>

namespace {

constexpr const char* Label = "MWindowSystemX11::ProcessNext";

}  // namespace

// What the user does goes first, then what is due; only then it is painted, once for all of it.
MWindowSystemX11::Message MWindowSystemX11::ProcessNext(const MControl* only) {
    keyModifiers.reset();
    if (!typed.empty() && (!only || platform->display.Find(typed.front().window) == only)) {
        const auto [window, character, modifiers] = typed.front();
        typed.pop_front();
        keyModifiers = modifiers;
        if (MControl* const root = platform->display.Find(window)) messages.OnCharacter(*root, character);
        return Message::Event;
    }
    const auto isWanted = [&](const xcb_generic_event_t& event) { return IsInputFor(event, *only); };
    MXEventQueue& queue = platform->display.queue;
    if (const MXEvent event = only ? queue.WaitFor(isWanted, 0) : queue.Take()) {
        MGuard(Label, [&] { Dispatch(*event); });
        return Message::Event;
    }
    platform->mouse.Settle();
    if (isWoken.exchange(false) || (alarm && *alarm <= GetTime())) {
        alarm.reset();
        RunRequests();
        MGuard(Label, [&] { owner->Attend(); });
        return Message::Timer;
    }
    const std::vector<MControl*>& roots = platform->display.roots;
    const auto dirty =
        std::ranges::find_if(roots, [](const MControl* root) { return MXWindow::Of(*root)->NeedsPaint(); });
    if (dirty == roots.end()) return Message::None;
    MGuard(Label, [&] { MXWindow::Of(**dirty)->Paint(**dirty); });
    return Message::Paint;
}

/// True as well for what no user does.
bool MWindowSystemX11::IsInputFor(const xcb_generic_event_t& event, const MControl& root) const {
    const uint8_t kind = MXKindOf(event);
    if (kind < XCB_KEY_PRESS || kind > XCB_LEAVE_NOTIFY) return true;
    const bool isKey = kind == XCB_KEY_PRESS || kind == XCB_KEY_RELEASE;
    const MControl* const active = isKey ? platform->activation.GetActive() : nullptr;
    // All of these begin alike.
    const xcb_window_t window = MXAs<xcb_key_press_event_t>(event).event;
    return (active ? active : platform->display.Find(window)) == &root;
}

int32_t MWindowSystemX11::ProcessPending() {
    int32_t count = 0;
    for (int32_t paintsInRow = 0; count < MaximumPending && paintsInRow < MaximumPaintsInRow; ++count) {
        const Message message = ProcessNext(owner->messageFilter);
        if (message == Message::None) break;
        paintsInRow = message == Message::Event ? 0 : paintsInRow + 1;
    }
    // A loop does that before it waits.
    xcb_flush(platform->display.connection);
    return count;
}

bool MWindowSystemX11::Turn() {
    if (isQuitting || !platform->display.connection.IsAlive()) return false;
    if (ProcessNext() != Message::None) return true;
    const int64_t left = alarm ? std::max<int64_t>(*alarm - GetTime(), 0) : MXEventQueue::Forever;
    platform->display.queue.Wait(left);
    return true;
}

void MWindowSystemX11::RunLoop(MControl& root) {
    const MControlRef alive(&root);
    while (alive && root.GetRootState().modalResult == MModalValue::None && Turn()) {}
}

void MWindowSystemX11::ExitLoop(MControl& root, MModalValue result) {
    if (root.GetRootState().modalResult != MModalValue::None) return;
    root.GetRootState().modalResult = result;
    platform->display.queue.Wake();
}

void MWindowSystemX11::RunApplication() {
    while (Turn()) {}
    isQuitting = false;  // That was for all loops within this one.
}

void MWindowSystemX11::Quit() {
    isQuitting = true;
    platform->display.queue.Wake();
}

void MWindowSystemX11::WakeUp() {
    isWoken = true;
    platform->display.queue.Wake();
}

bool MWindowSystemX11::IsForOtherThread(MControl& root, void (MWindowSystemX11::*operation)(MControl&)) {
    if (std::this_thread::get_id() == thread) return false;
    {
        const std::lock_guard guard(requestsLock);
        // The root may end before its turn comes.
        requests.emplace_back([this, subject = &root, operation] {
            if (std::ranges::find(platform->display.roots, subject) != platform->display.roots.end())
                (this->*operation)(*subject);
        });
    }
    WakeUp();
    return true;
}

void MWindowSystemX11::RunRequests() {
    std::vector<std::function<void()>> taken;
    {
        const std::lock_guard guard(requestsLock);
        taken.swap(requests);
    }
    for (const std::function<void()>& request : taken) request();
}
