#include "ui/window/headless/MWindowSystemHeadless.h"

#include "foundation/base/MRaise.h"
#include "foundation/module/MPlatform.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/windows/MWindows.h"
#include "ui/window/headless/MHeadlessWindow.h"

#include <algorithm>
#include <utility>

namespace {

/// A loop in which nothing but timers has run for so long, in milliseconds, will never end by itself.
constexpr int64_t EndlessTime = 600'000;

/// The square of the distance of a point to a rectangle.
int64_t GetDistance(const MRect& rect, MPoint point) {
    const int64_t x = point.x - std::clamp(point.x, rect.left, rect.right);
    const int64_t y = point.y - std::clamp(point.y, rect.top, rect.bottom);
    return x * x + y * y;
}

}  // namespace

MWindowSystemHeadless::MWindowSystemHeadless(MPoint screenSize)
    : workAreas{MRect::FromSize(0, 0, screenSize.x, screenSize.y)} {}

MWindowSystem::Info MWindowSystemHeadless::GetInfo() {
    return {"Window-system in memory", MString()};
}

void MWindowSystemHeadless::Initialize(MWindows& newOwner) {
    owner = &newOwner;
    EnableEvents(true, true);
}

MRect MWindowSystemHeadless::GetWorkArea(std::optional<MPoint> point) {
    if (!point) return workAreas.front();
    return *std::min_element(workAreas.begin(), workAreas.end(), [&](const MRect& a, const MRect& b) {
        return GetDistance(a, *point) < GetDistance(b, *point);
    });
}

void MWindowSystemHeadless::EnableEvents(bool mouse, bool keyboard) {
    messages.EnableEvents(mouse, keyboard);
}

void MWindowSystemHeadless::CreateWindow(MControl& root, const MString&, MPoint size, MPoint position,
                                         intptr_t, bool) {
    auto window = std::make_unique<MHeadlessWindow>();
    window->frame = MRect::FromSize(position.x, position.y, size.x, size.y);
    root.SetProperty(MHeadlessWindow::Key, std::move(window));
    windows.push_back(&root);
}

void MWindowSystemHeadless::DestroyWindow(MControl& root) {
    if (!MHeadlessWindow::Of(root)) return;
    std::erase(windows, &root);
    if (activeRoot == &root) activeRoot = nullptr;
    if (capturingRoot == &root) capturingRoot = nullptr;
    root.SetProperty(MHeadlessWindow::Key, nullptr);
}

intptr_t MWindowSystemHeadless::GetNativeHandle(MControl& root) {
    return reinterpret_cast<intptr_t>(MHeadlessWindow::Of(root));
}

bool MWindowSystemHeadless::IsVisible(MControl& root) {
    const MHeadlessWindow* const window = MHeadlessWindow::Of(root);
    return window && window->isVisible;
}

/// Gives a window its place, as a platform does: the root hears of it.
void MWindowSystemHeadless::PutFrame(MControl& root, const MRect& frame) {
    MHeadlessWindow* const window = MHeadlessWindow::Of(root);
    if (!window || frame.IsEmpty()) return;
    const MRect before = std::exchange(window->frame, frame);
    messages.OnFrameChanged(root, before, frame);
}

void MWindowSystemHeadless::Move(MControl& root, MPoint point) {
    root.position = point;
    const MRect frame = GetFrame(root);
    PutFrame(root, frame.Shifted(point - frame.GetTopLeft()));
}

void MWindowSystemHeadless::Resize(MControl& root, MPoint size) {
    const MRect frame = GetFrame(root);
    PutFrame(root, MRect::FromSize(frame.left, frame.top, size.x, size.y));
}

MRect MWindowSystemHeadless::GetFrame(MControl& root) {
    const MHeadlessWindow* const window = MHeadlessWindow::Of(root);
    return window ? window->frame : MRect();
}

void MWindowSystemHeadless::Maximize(MControl& root) {
    MHeadlessWindow* const window = MHeadlessWindow::Of(root);
    if (!window || window->isMaximized) return;
    window->savedFrame = window->frame;
    window->isMaximized = true;
    const MRect& frame = window->frame;
    PutFrame(root, GetWorkArea(MPoint{(frame.left + frame.right) / 2, (frame.top + frame.bottom) / 2}));
}

void MWindowSystemHeadless::Restore(MControl& root) {
    MHeadlessWindow* const window = MHeadlessWindow::Of(root);
    if (!window) return;
    if (std::exchange(window->isMinimized, false)) return;
    if (std::exchange(window->isMaximized, false)) PutFrame(root, window->savedFrame);
}

void MWindowSystemHeadless::Minimize(MControl& root) {
    if (MHeadlessWindow* const window = MHeadlessWindow::Of(root)) window->isMinimized = true;
}

bool MWindowSystemHeadless::IsMaximized(MControl& root) {
    const MHeadlessWindow* const window = MHeadlessWindow::Of(root);
    return window && window->isMaximized;
}

bool MWindowSystemHeadless::IsMinimized(MControl& root) {
    const MHeadlessWindow* const window = MHeadlessWindow::Of(root);
    return window && window->isMinimized;
}

void MWindowSystemHeadless::Show(MControl& root) {
    MHeadlessWindow* const window = MHeadlessWindow::Of(root);
    if (!window) return;
    std::erase(windows, &root);
    windows.push_back(&root);
    window->isVisible = true;
    window->updateRect = MRect::FromSize(0, 0, window->frame.GetWidth(), window->frame.GetHeight());
}

void MWindowSystemHeadless::Hide(MControl& root) {
    MHeadlessWindow* const window = MHeadlessWindow::Of(root);
    if (!window || !std::exchange(window->isVisible, false)) return;
    messages.ArmHoldOff();
    if (capturingRoot == &root) capturingRoot = nullptr;
    if (activeRoot != &root) return;
    activeRoot = nullptr;
    messages.OnDeactivated(root, nullptr, MString());
}

void MWindowSystemHeadless::Activate(MControl& root) {
    if (!IsVisible(root)) return;
    std::erase(windows, &root);
    windows.push_back(&root);
    if (activeRoot == &root) return;
    if (MControl* const before = std::exchange(activeRoot, &root))
        messages.OnDeactivated(*before, &root, MString());
    if (activeRoot == &root) messages.OnActivated(root);
}

void MWindowSystemHeadless::SetDesktop(int32_t newScalePercent, std::optional<bool> newPrefersDark) {
    scalePercent = newScalePercent;
    prefersDark = newPrefersDark;
    if (owner) owner->UpdateDesktop();
}

void MWindowSystemHeadless::ActivateOtherProgram(const MString& title) {
    if (MControl* const before = std::exchange(activeRoot, nullptr))
        messages.OnDeactivated(*before, nullptr, title);
}

MControl* MWindowSystemHeadless::GetRootUnder(MPoint screenPoint) const {
    if (capturingRoot) return capturingRoot;
    const auto topmost = std::find_if(windows.rbegin(), windows.rend(), [&](const MControl* root) {
        const MHeadlessWindow& window = *MHeadlessWindow::Of(*root);
        return window.isVisible && !window.isMinimized && window.frame.Contains(screenPoint);
    });
    return topmost == windows.rend() ? nullptr : *topmost;
}

const MBitmap& MWindowSystemHeadless::GetPicture(MControl& root) const {
    return MHeadlessWindow::Of(root)->picture;
}

MStdCursor MWindowSystemHeadless::GetShownCursor(MControl& root) const {
    return MHeadlessWindow::Of(root)->cursor.kind;
}

MWindowSystemHeadless::Message MWindowSystemHeadless::ProcessNext() {
    if (!actions.empty() && actions.front().time <= time) {
        const Action action = std::move(actions.front());
        actions.pop_front();
        lastAction = time;
        action.run();
        return Message::Action;
    }
    if (isWoken.exchange(false) || (alarm && *alarm <= time)) {
        alarm.reset();
        owner->Attend();
        return Message::Timer;
    }
    for (MControl* root : windows) {
        if (MHeadlessWindow::Of(*root)->updateRect.IsEmpty() || !IsVisible(*root)) continue;
        Update(*root);
        return Message::Paint;
    }
    return Message::None;
}

std::optional<int64_t> MWindowSystemHeadless::GetNextTime() const {
    if (actions.empty()) return alarm;
    const int64_t action = actions.front().time;
    return std::min(action, alarm.value_or(action));
}

void MWindowSystemHeadless::Post(std::function<void()> action, int64_t delay) {
    lastPost = std::max(lastPost, time) + delay;
    actions.push_back({lastPost, std::move(action)});
}

int32_t MWindowSystemHeadless::ProcessPending() {
    int32_t count = 0;
    for (int32_t paintsInRow = 0; count < MaximumPending && paintsInRow < MaximumPaintsInRow; ++count) {
        const Message message = ProcessNext();
        if (message == Message::None) break;
        paintsInRow = message == Message::Action ? 0 : paintsInRow + 1;
    }
    return count;
}

bool MWindowSystemHeadless::WaitForMessage() {
    if (ProcessNext() != Message::None) {
        ++wakeUps;
        return true;
    }
    const std::optional<int64_t> next = GetNextTime();
    if (next && *next - lastAction < EndlessTime) {
        time = std::max(time, *next);
        return true;
    }
    for (int32_t waited = 0; waited < patience; ++waited) {
        if (isWoken) return true;
        MPlatform::Sleep(1);
    }
    return isWoken;
}

void MWindowSystemHeadless::RunLoop(MControl& root) {
    const MControlRef alive(&root);
    lastAction = time;
    if (MHeadlessWindow* const window = MHeadlessWindow::Of(root)) window->isLoopEnding = false;
    while (!isQuitting && alive && root.GetRootState().modalResult == MModalValue::None) {
        const MHeadlessWindow* const window = MHeadlessWindow::Of(root);
        if (!window || window->isLoopEnding || !WaitForMessage()) return;
    }
}

void MWindowSystemHeadless::ExitLoop(MControl& root, MModalValue result) {
    if (root.GetRootState().modalResult != MModalValue::None) return;
    root.GetRootState().modalResult = result;
    if (MHeadlessWindow* const window = MHeadlessWindow::Of(root)) window->isLoopEnding = true;
}

void MWindowSystemHeadless::RunApplication() {
    lastAction = time;
    while (!isQuitting && WaitForMessage()) {}
}

void MWindowSystemHeadless::AdvanceTime(int64_t milliseconds) {
    const int64_t end = time + milliseconds;
    while (ProcessPending() > 0) {}
    for (std::optional<int64_t> next = GetNextTime(); next && *next <= end; next = GetNextTime()) {
        time = std::max(time, *next);
        while (ProcessPending() > 0) {}
    }
    time = end;
}

void MWindowSystemHeadless::DrawDragFrame(MControl&, int32_t x, int32_t y, int32_t width, int32_t height) {
    const MRect frame = MRect::FromSize(x, y, width, height);
    if (std::erase(dragFrames, frame) == 0) dragFrames.push_back(frame);
}

void MWindowSystemHeadless::Invalidate(MControl& root, const MRect& rect) {
    MHeadlessWindow* const window = MHeadlessWindow::Of(root);
    if (!window) return;
    window->updateRect = window->updateRect.United({rect.left, rect.top, rect.right - 1, rect.bottom - 1});
}

void MWindowSystemHeadless::Update(MControl& root) {
    MHeadlessWindow* const window = MHeadlessWindow::Of(root);
    if (!window || !window->isVisible) return;
    const std::shared_ptr<MBackBuffer> backBuffer = window->backBuffer;
    const MRect shown = backBuffer->PaintWindow(root, std::exchange(window->updateRect, MRect()));
    if (shown.IsEmpty()) return;
    const MBitmap& buffer = *backBuffer->GetBitmap();
    if (window->picture.GetWidth() != buffer.GetWidth() || window->picture.GetHeight() != buffer.GetHeight())
        window->picture.CreateOpaque(buffer.GetWidth(), buffer.GetHeight());
    for (int32_t y = shown.top; y <= shown.bottom; ++y)
        std::copy_n(buffer.GetRow(y) + shown.left, shown.GetWidth(), window->picture.EditRow(y) + shown.left);
}

MDrawer* MWindowSystemHeadless::GetDrawer(MControl& root) {
    MHeadlessWindow* const window = MHeadlessWindow::Of(root);
    return window ? &window->backBuffer->GetDrawer() : nullptr;
}

bool MWindowSystemHeadless::CaptureToBitmap(MControl& root, MBitmap& bitmap) {
    const MControlRef alive(&root);
    root.RedrawNow();
    const MHeadlessWindow* const window = alive ? MHeadlessWindow::Of(root) : nullptr;
    if (window) bitmap = window->picture;
    return window != nullptr;
}

void MWindowSystemHeadless::SetCapture(MControl& root, bool isOn) {
    if (!isOn) {
        if (capturingRoot == &root) capturingRoot = nullptr;
        return;
    }
    MControl* const before = std::exchange(capturingRoot, &root);
    if (before && before != &root) messages.OnCaptureLost(*before);
}

void MWindowSystemHeadless::SetCursor(MControl& root, const MCursor& cursor) {
    if (MHeadlessWindow* const window = MHeadlessWindow::Of(root)) window->cursor = cursor;
}

MPoint MWindowSystemHeadless::GetCursorPosition(MControl& root) {
    return user.GetMouse() - GetFrame(root).GetTopLeft();
}

void MWindowSystemHeadless::SetCursorPosition(MControl& root, MPoint point) {
    user.PlaceMouse(point + GetFrame(root).GetTopLeft());
}

void MWindowSystemHeadless::TrackMouseLeave(MControl& root, bool isOn) {
    if (MHeadlessWindow* const window = MHeadlessWindow::Of(root)) window->isLeaveTracked = isOn;
}

void MWindowSystemHeadless::SetClipboard(const MString& format, const MBuffer& data) {
    clipboard.clear();
    clipboard.emplace_back(format, data);
}

bool MWindowSystemHeadless::HasClipboard(const MString& format) {
    return std::ranges::any_of(clipboard, [&](const auto& entry) { return entry.first == format; });
}

MBuffer MWindowSystemHeadless::GetClipboard(const MString& format) {
    for (const auto& entry : clipboard)
        if (entry.first == format) return entry.second;
    MRaise(MExceptionGeneral, "No data present in clipboard. ");
}

void MWindowSystemHeadless::WakeUp() {
    isWoken = true;
}
