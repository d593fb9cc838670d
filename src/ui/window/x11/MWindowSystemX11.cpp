#include "ui/window/x11/MWindowSystemX11.h"

#include "foundation/MProductConstants.h"
#include "foundation/base/MGuard.h"
#include "foundation/text/MUnicode.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/windows/MWindows.h"
#include "ui/window/MNativeWindowSystem.h"
#include "ui/window/x11/MXWindow.h"
#include "ui/window/x11/display/MXMonitors.h"

std::unique_ptr<MWindowSystem> MCreateNativeWindowSystem(const MString& display,
                                                         std::unique_ptr<MWindowAcceleration> acceleration) {
    return std::make_unique<MWindowSystemX11>(display, std::move(acceleration));
}

MWindowSystemX11::Platform::Platform(MWindowSystemX11& system, const std::string& displayName)
    : display(displayName),
      activation(display, system.messages),
      mouse(display, system.messages, activation),
      clipboard(display.connection, display.queue),
      dragTarget(
          display.connection, clipboard.GetReader(),
          [this](xcb_window_t window) {
              const MControl* const root = display.Find(window);
              return root && root->Is(MControlFlag::AcceptsFiles);
          },
          [this, &system](xcb_window_t window, const MList<MString>& files, MPoint point) {
              MControl* const root = display.Find(window);
              return root && system.messages.OnFilesDropped(*root, files,
                                                            point - system.GetFrame(*root).GetTopLeft());
          }),
      dragFrame(display.connection) {}

MWindowSystemX11::MWindowSystemX11(const MString& displayName,
                                   std::unique_ptr<MWindowAcceleration> acceleration)
    : displayName(displayName), acceleration(std::move(acceleration)) {}

MWindowSystemX11::~MWindowSystemX11() = default;

MWindowSystem::Info MWindowSystemX11::GetInfo() {
    return {"X11 native window-system", MProductMaker};
}

void MWindowSystemX11::Initialize(MWindows& newOwner) {
    platform = std::make_unique<Platform>(*this, MEncodeUTF8Exact(displayName));
    owner = &newOwner;
    EnableEvents(true, true);
}

MRect MWindowSystemX11::GetWorkArea(std::optional<MPoint> point) {
    const MList<MXMonitor> monitors = MXReadMonitors(platform->display.connection);
    return point ? MXMonitorAt(monitors, *point).workArea : monitors[0].workArea;
}

void MWindowSystemX11::EnableEvents(bool mouse, bool keyboard) {
    messages.EnableEvents(mouse, keyboard);
}

void MWindowSystemX11::CreateWindow(MControl& root, const MString& caption, MPoint size, MPoint position,
                                    intptr_t parent, bool isInTaskbar) {
    if (root.Is(MControlFlag::FullScreen)) position = {};
    auto window =
        std::make_unique<MXWindow>(platform->display, MRect::FromSize(position.x, position.y, size.x, size.y),
                                   static_cast<xcb_window_t>(parent), isInTaskbar);
    window->SetCaption(caption);
    window->SetIcons(owner->GetIcons());
    if (acceleration) {
        const MXDisplay& display = platform->display;
        std::shared_ptr<MWindowPainter> painter = acceleration->CreatePainter(
            {display.connection, static_cast<intptr_t>(window->GetId()), display.visual.visual});
        if (painter) window->SetPainter(std::move(painter));
    }
    root.SetProperty(MXWindow::Key, std::move(window));
    platform->display.roots.push_back(&root);
}

void MWindowSystemX11::DestroyWindow(MControl& root) {
    if (!MXWindow::Of(root)) return;
    platform->mouse.Forget(root);
    platform->activation.Forget(root);
    std::erase(platform->display.roots, &root);
    root.SetProperty(MXWindow::Key, nullptr);
}

void MWindowSystemX11::OnWindowPrepared(MControl& root) {
    const MXWindow* const window = MXWindow::Of(root);
    if (window && window->IsShown()) window->TellManager(root);
}

void MWindowSystemX11::SetOwner(MControl& root, MControl* newOwner, bool) {
    MXWindow* const window = MXWindow::Of(root);
    const MXWindow* const ownerWindow = newOwner ? MXWindow::Of(*newOwner) : nullptr;
    if (window) window->SetOwner(ownerWindow ? ownerWindow->GetId() : xcb_window_t{XCB_WINDOW_NONE});
}

void MWindowSystemX11::SetNativeParent(MControl& root, intptr_t handle) {
    if (MXWindow* const window = MXWindow::Of(root)) window->Embed(static_cast<xcb_window_t>(handle));
}

intptr_t MWindowSystemX11::GetNativeHandle(MControl& root) {
    const MXWindow* const window = MXWindow::Of(root);
    return window ? static_cast<intptr_t>(window->GetId()) : 0;
}

bool MWindowSystemX11::IsVisible(MControl& root) {
    const MXWindow* const window = MXWindow::Of(root);
    return window && window->IsShown();
}

void MWindowSystemX11::SetCaption(MControl& root) {
    if (MXWindow* const window = MXWindow::Of(root)) window->SetCaption(MTranslate(root.GetCaption()));
}

void MWindowSystemX11::PutFrame(MControl& root, const MRect& frame) {
    MXWindow* const window = MXWindow::Of(root);
    if (!window || frame.IsEmpty()) return;
    const MRect before = window->GetFrame();
    window->Put(root, frame);
    messages.OnFrameChanged(root, before, frame);
}

void MWindowSystemX11::Move(MControl& root, MPoint point) {
    root.position = point;
    const MRect frame = GetFrame(root);
    PutFrame(root, frame.Shifted(point - frame.GetTopLeft()));
}

void MWindowSystemX11::Resize(MControl& root, MPoint size) {
    if (!MXWindow::Of(root)) return;
    MRect frame = MRect::FromSize(GetFrame(root).left, GetFrame(root).top, size.x, size.y);
    if (root.Is(MControlFlag::FullScreen))
        frame = MXMonitorAt(MXReadMonitors(platform->display.connection), frame.GetTopLeft()).frame;
    PutFrame(root, frame);
}

void MWindowSystemX11::SetShape(MControl& root, const MAlphaMask& mask) {
    if (MXWindow* const window = MXWindow::Of(root)) window->SetShape(mask);
}

MRect MWindowSystemX11::GetFrame(MControl& root) {
    const MXWindow* const window = MXWindow::Of(root);
    return window ? window->GetFrame() : MRect();
}

void MWindowSystemX11::Maximize(MControl& root) {
    MXWindow* const window = MXWindow::Of(root);
    if (!window || window->isMaximized) return;
    const MRect frame = window->GetFrame();
    window->savedFrame = frame;
    window->isMaximized = true;
    PutFrame(root, GetWorkArea(MPoint{(frame.left + frame.right) / 2, (frame.top + frame.bottom) / 2}));
}

void MWindowSystemX11::Restore(MControl& root) {
    MXWindow* const window = MXWindow::Of(root);
    if (!window) return;
    if (window->IsMinimized())
        Activate(root);
    else if (std::exchange(window->isMaximized, false))
        PutFrame(root, window->savedFrame);
}

void MWindowSystemX11::Minimize(MControl& root) {
    if (const MXWindow* const window = MXWindow::Of(root)) window->Minimize();
}

bool MWindowSystemX11::IsMaximized(MControl& root) {
    const MXWindow* const window = MXWindow::Of(root);
    return window && window->isMaximized;
}

bool MWindowSystemX11::IsMinimized(MControl& root) {
    const MXWindow* const window = MXWindow::Of(root);
    return window && window->IsMinimized();
}

void MWindowSystemX11::Show(MControl& root) {
    if (IsForOtherThread(root, &MWindowSystemX11::Show)) return;
    MXWindow* const window = MXWindow::Of(root);
    if (!window || window->IsShown()) return;
    window->Show(root);
    platform->mouse.OnShown(root);
}

void MWindowSystemX11::Hide(MControl& root) {
    if (IsForOtherThread(root, &MWindowSystemX11::Hide)) return;
    MXWindow* const window = MXWindow::Of(root);
    if (!window || !window->IsShown()) return;
    messages.ArmHoldOff();
    platform->mouse.Forget(root);
    window->Hide();
    platform->activation.Forget(root);
}

void MWindowSystemX11::Activate(MControl& root) {
    if (!IsVisible(root)) return;
    platform->mouse.LoseCapture();
    // A handler may have ended it.
    if (IsVisible(root)) platform->activation.Activate(root);
}

MControl* MWindowSystemX11::GetActiveRoot() {
    return platform->activation.GetActive();
}

void MWindowSystemX11::DrawDragFrame(MControl&, int32_t x, int32_t y, int32_t width, int32_t height) {
    platform->dragFrame.Toggle(MRect::FromSize(x, y, width, height));
}

void MWindowSystemX11::Invalidate(MControl& root, const MRect& rect) {
    if (MXWindow* const window = MXWindow::Of(root))
        window->Invalidate({rect.left, rect.top, rect.right - 1, rect.bottom - 1});
}

// Long work shows that it lives by painting now and then, and nothing else. So what the server wants painted
// is taken to heart here as well, and the manager's question whether the program lives is answered.
void MWindowSystemX11::Update(MControl& root) {
    platform->display.queue.Drop([&](const xcb_generic_event_t& event) {
        const bool isTaken = MXKindOf(event) == XCB_EXPOSE || IsPing(event);
        if (isTaken) Dispatch(event);
        return isTaken;
    });
    MXWindow* const window = MXWindow::Of(root);
    if (window && window->NeedsPaint()) window->Paint(root);
}

MDrawer* MWindowSystemX11::GetDrawer(MControl& root) {
    MXWindow* const window = MXWindow::Of(root);
    return window ? &window->GetDrawer() : nullptr;
}

bool MWindowSystemX11::CaptureToBitmap(MControl& root, MBitmap& bitmap) {
    const MControlRef alive(&root);
    root.RedrawNow();
    const MXWindow* const window = alive ? MXWindow::Of(root) : nullptr;
    return window && window->GetPainter().TakePicture(root, bitmap);
}

void MWindowSystemX11::SetCapture(MControl& root, bool isOn) {
    if (MXWindow::Of(root)) platform->mouse.SetCapture(root, isOn);
}

void MWindowSystemX11::SetCursor(MControl& root, const MCursor& cursor) {
    MXWindow* const window = MXWindow::Of(root);
    // A pointer that cannot be made leaves the one before.
    if (window)
        MGuard("MWindowSystemX11::SetCursor",
               [&] { window->SetCursor(platform->display.cursors.Get(cursor)); });
}

MXReply<xcb_query_pointer_reply_t> MWindowSystemX11::QueryPointer(xcb_window_t window) const {
    const MXConnection& connection = platform->display.connection;
    return MXReply<xcb_query_pointer_reply_t>(
        xcb_query_pointer_reply(connection, xcb_query_pointer(connection, window), nullptr));
}

MPoint MWindowSystemX11::GetCursorPosition() {
    const auto pointer = QueryPointer(platform->display.connection.GetRoot());
    return pointer ? MPoint{pointer->root_x, pointer->root_y} : MPoint();
}

MPoint MWindowSystemX11::GetCursorPosition(MControl& root) {
    const MXWindow* const window = MXWindow::Of(root);
    const auto pointer = window ? QueryPointer(window->GetId()) : nullptr;
    return pointer ? MPoint{pointer->win_x, pointer->win_y} : MPoint();
}

void MWindowSystemX11::SetCursorPosition(MControl& root, MPoint point) {
    if (MXWindow::Of(root) && GetCursorPosition(root) != point) platform->mouse.Warp(root, point);
}

void MWindowSystemX11::TrackMouseLeave(MControl& root, bool isOn) {
    MXWindow* const window = MXWindow::Of(root);
    if (window && isOn) window->isLeaveTracked = true;
}

MKeyModifiers MWindowSystemX11::GetModifiers() {
    if (keyModifiers) return *keyModifiers;
    const auto pointer = QueryPointer(platform->display.connection.GetRoot());
    return pointer ? MXKeyboard::GetModifiers(pointer->mask) : MModifierNone;
}

void MWindowSystemX11::SetClipboard(const MString& format, const MBuffer& data) {
    platform->clipboard.Set(format, data, platform->display.time);
}

bool MWindowSystemX11::HasClipboard(const MString& format) {
    return platform->clipboard.Has(format, platform->display.time);
}

MBuffer MWindowSystemX11::GetClipboard(const MString& format) {
    return platform->clipboard.Get(format, platform->display.time);
}

int32_t MWindowSystemX11::GetScalePercent() {
    return platform->display.settings.GetDotsPerInch() * 100 / MXSettings::UsualDotsPerInch;
}
