#pragma once

#include "ui/window/MWindowAcceleration.h"
#include "ui/window/MWindowMessages.h"
#include "ui/window/x11/MXDragFrame.h"
#include "ui/window/x11/display/MXDisplay.h"
#include "ui/window/x11/input/MXActivation.h"
#include "ui/window/x11/input/MXMouse.h"
#include "ui/window/x11/selections/MXClipboard.h"
#include "ui/window/x11/selections/MXDragTarget.h"

#include <atomic>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

/// Windows on a display of X, that of the environment or another one. Desktops of Wayland bring such a
/// display as well.
///
/// When the server dies, every loop ends, as after `Quit`.
class MWindowSystemX11 final : public MWindowSystem {
public:
    explicit MWindowSystemX11(const MString& displayName = MString(),
                              std::unique_ptr<MWindowAcceleration> acceleration = nullptr);
    MWindowSystemX11(const MWindowSystemX11&) = delete;
    MWindowSystemX11& operator=(const MWindowSystemX11&) = delete;
    ~MWindowSystemX11() override;

    [[nodiscard]] uint32_t GetCapabilities() override { return 0; }
    [[nodiscard]] Info GetInfo() override;
    void Initialize(MWindows& newOwner) override;
    [[nodiscard]] MRect GetWorkArea(std::optional<MPoint> point) override;
    void EnableEvents(bool mouse, bool keyboard) override;
    void CreateWindow(MControl& root, const MString& caption, MPoint size, MPoint position, intptr_t parent,
                      bool isInTaskbar) override;
    void DestroyWindow(MControl& root) override;
    void OnWindowPrepared(MControl& root) override;
    void OnWindowUnprepared(MControl&) override {}
    void SetOwner(MControl& root, MControl* newOwner, bool keepTopmost) override;
    void SetNativeParent(MControl& root, intptr_t handle) override;
    [[nodiscard]] intptr_t GetNativeHandle(MControl& root) override;
    [[nodiscard]] void* GetSystemWindow(MControl&) override { return nullptr; }
    [[nodiscard]] bool IsVisible(MControl& root) override;
    void SetCaption(MControl& root) override;
    void Move(MControl& root, MPoint point) override;
    void Resize(MControl& root, MPoint size) override;
    void SetShape(MControl& root, const MAlphaMask& mask) override;
    [[nodiscard]] MRect GetFrame(MControl& root) override;
    void Maximize(MControl& root) override;
    void Restore(MControl& root) override;
    void Minimize(MControl& root) override;
    [[nodiscard]] bool IsMaximized(MControl& root) override;
    [[nodiscard]] bool IsMinimized(MControl& root) override;
    void Show(MControl& root) override;
    void Hide(MControl& root) override;
    void Activate(MControl& root) override;
    [[nodiscard]] MControl* GetActiveRoot() override;
    int32_t ProcessPending() override;
    void RunLoop(MControl& root) override;
    void ExitLoop(MControl& root, MModalValue result) override;
    void RunApplication() override;
    void Quit() override;
    void DrawDragFrame(MControl& root, int32_t x, int32_t y, int32_t width, int32_t height) override;
    void Invalidate(MControl& root, const MRect& rect) override;
    void Update(MControl& root) override;
    [[nodiscard]] MDrawer* GetDrawer(MControl& root) override;
    bool CaptureToBitmap(MControl& root, MBitmap& bitmap) override;
    void SetCapture(MControl& root, bool isOn) override;
    void SetCursor(MControl& root, const MCursor& cursor) override;
    void ResetCursor(MControl&) override {}
    [[nodiscard]] MPoint GetCursorPosition() override;
    [[nodiscard]] MPoint GetCursorPosition(MControl& root) override;
    void SetCursorPosition(MControl& root, MPoint point) override;
    void TrackMouseLeave(MControl& root, bool isOn) override;
    [[nodiscard]] MKeyModifiers GetModifiers() override;
    void SetClipboard(const MString& format, const MBuffer& data) override;
    [[nodiscard]] bool HasClipboard(const MString& format) override;
    [[nodiscard]] MBuffer GetClipboard(const MString& format) override;
    [[nodiscard]] int64_t GetTime() override { return MXMilliseconds(); }
    void SetAlarm(std::optional<int64_t> newAlarm) override { alarm = newAlarm; }
    void WakeUp() override;
    [[nodiscard]] int32_t GetScalePercent() override;
    [[nodiscard]] std::optional<bool> PrefersDark() override {
        return platform->display.settings.PrefersDark();
    }

    /// How often a loop was woken.
    [[nodiscard]] int64_t CountWakeUps() const { return platform->display.queue.CountWakings(); }

private:
    enum class Message { None, Event, Paint, Timer };

    /// What a key has typed, and where.
    struct Typed {
        xcb_window_t window;
        char16_t character;
        MKeyModifiers modifiers;
    };

    /// All that is open, in the order in which it needs each other.
    struct Platform {
        Platform(MWindowSystemX11& system, const std::string& displayName);

        MXDisplay display;
        MXActivation activation;
        MXMouse mouse;
        MXClipboard clipboard;
        MXDragTarget dragTarget;
        MXDragFrame dragFrame;
    };

    // MWindowSystemX11Events.cpp
    void Dispatch(const xcb_generic_event_t& event);
    void OnConfigured(const xcb_configure_notify_event_t& event);
    void OnKey(const xcb_key_press_event_t& event, MEventType type);
    void OnMessage(const xcb_client_message_event_t& message);
    [[nodiscard]] bool IsPing(const xcb_generic_event_t& event) const;
    void AnswerPing(xcb_client_message_event_t message) const;

    // MWindowSystemX11Loop.cpp
    /// `only`: what the user does in other windows than this one waits; null for in none.
    [[nodiscard]] Message ProcessNext(const MControl* only = nullptr);
    [[nodiscard]] bool IsInputFor(const xcb_generic_event_t& event, const MControl& root) const;
    /// Handles what there is or waits for it. False when the loop has to end.
    [[nodiscard]] bool Turn();
    void RunRequests();
    /// On the thread of the windows at once, on another one as soon as that gets to it. True if it is there.
    bool IsForOtherThread(MControl& root, void (MWindowSystemX11::*operation)(MControl&));

    void PutFrame(MControl& root, const MRect& frame);
    [[nodiscard]] MXReply<xcb_query_pointer_reply_t> QueryPointer(xcb_window_t window) const;

    const MString displayName;
    MWindows* owner = nullptr;
    MWindowMessages messages{*this};
    std::unique_ptr<Platform> platform;                       ///< null until `Initialize`
    const std::unique_ptr<MWindowAcceleration> acceleration;  ///< of windows; may be null
    const std::thread::id thread = std::this_thread::get_id();
    std::atomic<bool> isWoken = false;
    bool isQuitting = false;
    std::deque<Typed> typed;
    /// Those of the key that is being handled, however late that is.
    std::optional<MKeyModifiers> keyModifiers;
    std::optional<int64_t> alarm;
    std::mutex requestsLock;
    std::vector<std::function<void()>> requests;  ///< of other threads
};
