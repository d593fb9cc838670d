#pragma once

#include "foundation/events/MLock.h"
#include "foundation/win32/MWindowsHeader.h"
#include "ui/control/windows/MWindowSystem.h"
#include "ui/window/MWindowAcceleration.h"
#include "ui/window/MWindowMessages.h"
#include "ui/window/win32/MBackgroundWindow.h"
#include "ui/window/win32/MMessageLoopCounter.h"

#include <memory>
#include <unordered_map>
#include <utility>

/// The windows of User32. They have no frame of the system's; a root's descriptor is kept with it.
class MWindowSystemMSWindows final : public MWindowSystem {
public:
    explicit MWindowSystemMSWindows(std::unique_ptr<MWindowAcceleration> acceleration)
        : acceleration(std::move(acceleration)) {}
    MWindowSystemMSWindows(const MWindowSystemMSWindows&) = delete;
    MWindowSystemMSWindows& operator=(const MWindowSystemMSWindows&) = delete;
    ~MWindowSystemMSWindows() override;

    /// What the window procedure translates for.
    [[nodiscard]] MWindowMessages& GetMessages() { return messages; }

    [[nodiscard]] uint32_t GetCapabilities() override { return 0; }
    [[nodiscard]] Info GetInfo() override;
    void Initialize(MWindows& newOwner) override;
    [[nodiscard]] MRect GetWorkArea(std::optional<MPoint> point) override;
    void EnableEvents(bool mouse, bool keyboard) override { messages.EnableEvents(mouse, keyboard); }

    // MWindowSystemMSWindows.cpp
    void CreateWindow(MControl& root, const MString& caption, MPoint size, MPoint position, intptr_t parent,
                      bool isInTaskbar) override;
    void DestroyWindow(MControl& root) override;
    void OnWindowPrepared(MControl&) override {}
    void OnWindowUnprepared(MControl&) override {}
    void SetOwner(MControl& root, MControl* owner, bool keepTopmost) override;
    void SetNativeParent(MControl& root, intptr_t handle) override;
    [[nodiscard]] intptr_t GetNativeHandle(MControl& root) override;
    [[nodiscard]] void* GetSystemWindow(MControl&) override { return nullptr; }

    // MWindowSystemMSWindowsFrame.cpp
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

    // MWindowSystemMSWindowsLoop.cpp
    int32_t ProcessPending() override;
    void RunLoop(MControl& root) override;
    void ExitLoop(MControl& root, MModalValue result) override;
    void RunApplication() override;
    void Quit() override;

    // MWindowSystemMSWindowsPixels.cpp
    void DrawDragFrame(MControl& root, int32_t x, int32_t y, int32_t width, int32_t height) override;
    void Invalidate(MControl& root, const MRect& rect) override;
    void Update(MControl& root) override;
    [[nodiscard]] MDrawer* GetDrawer(MControl& root) override;
    bool CaptureToBitmap(MControl& root, MBitmap& bitmap) override;

    // MWindowSystemMSWindowsInput.cpp
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

    [[nodiscard]] int64_t GetTime() override { return MBackgroundWindow::GetTime(); }
    void SetAlarm(std::optional<int64_t> time) override { background->SetAlarm(time); }
    void WakeUp() override { background->WakeUp(); }
    [[nodiscard]] int32_t GetScalePercent() override;
    [[nodiscard]] std::optional<bool> PrefersDark() override;

private:
    void PostFromThread(const MControl& root, UINT message);
    void Translate(const MSG& message);

    MWindows* owner = nullptr;
    HINSTANCE instance = nullptr;  ///< the program or the plug-in that this code is a part of
    DWORD thread = 0;              ///< that of the user interface
    MWindowMessages messages{*this};
    std::shared_ptr<MMessageLoopCounter> loopCounter = std::make_shared<MMessageLoopCounter>();
    std::unique_ptr<MBackgroundWindow> background;
    const std::unique_ptr<MWindowAcceleration> acceleration;  ///< of windows; may be null
    MLock handlesLock;
    std::unordered_map<const MControl*, HWND> handles;  ///< for other threads, which do not touch a tree
};
