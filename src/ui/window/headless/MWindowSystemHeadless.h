#pragma once

#include "foundation/base/MBuffer.h"
#include "ui/window/MWindowMessages.h"
#include "ui/window/headless/MHeadlessUser.h"

#include <atomic>
#include <deque>
#include <functional>
#include <utility>
#include <vector>

/// Windows in memory, on a screen that nobody sees, with a clock that goes only as it is told. What a user
/// would do, `GetUser` does; what has to happen while a loop runs is posted. A loop that has nothing more to
/// wait for ends, so that nothing hangs. Captions, shapes and owners mean nothing here.
class MWindowSystemHeadless final : public MWindowSystem {
public:
    /// One monitor of a size, all of it free for windows.
    explicit MWindowSystemHeadless(MPoint screenSize = {1920, 1080});

    // What a test does.
    [[nodiscard]] MHeadlessUser& GetUser() { return user; }
    [[nodiscard]] MWindowMessages& GetMessages() { return messages; }
    /// Replaces the monitors, of which the first is the primary one.
    void SetWorkAreas(std::vector<MRect> areas) { workAreas = std::move(areas); }
    /// Runs in the loop that is running then, in the order of posting, `delay` milliseconds after what was
    /// posted before.
    void Post(std::function<void()> action, int64_t delay = 0);
    /// Lets time pass, with all that happens in it.
    void AdvanceTime(int64_t milliseconds);
    /// For how long, in milliseconds of the real clock, a loop waits for other threads before it ends.
    void SetPatience(int32_t milliseconds) { patience = milliseconds; }
    /// The user chooses another scale, in percent, or another preference for dark.
    void SetDesktop(int32_t newScalePercent, std::optional<bool> newPrefersDark);
    /// The user turns to a window of another program.
    void ActivateOtherProgram(const MString& title);
    /// The topmost window at a point of the screen, or the one that has captured the mouse; null for none.
    [[nodiscard]] MControl* GetRootUnder(MPoint screenPoint) const;
    /// What the window shows.
    [[nodiscard]] const MBitmap& GetPicture(MControl& root) const;
    [[nodiscard]] MStdCursor GetShownCursor(MControl& root) const;
    /// How often a loop had something to do.
    [[nodiscard]] int64_t CountWakeUps() const { return wakeUps; }
    /// How many frames were drawn, and not removed again.
    [[nodiscard]] size_t CountDragFrames() const { return dragFrames.size(); }

    [[nodiscard]] uint32_t GetCapabilities() override { return 0; }
    [[nodiscard]] Info GetInfo() override;
    void Initialize(MWindows& newOwner) override;
    [[nodiscard]] MRect GetWorkArea(std::optional<MPoint> point) override;
    void EnableEvents(bool mouse, bool keyboard) override;
    void CreateWindow(MControl& root, const MString& caption, MPoint size, MPoint position, intptr_t parent,
                      bool isInTaskbar) override;
    void DestroyWindow(MControl& root) override;
    void OnWindowPrepared(MControl&) override {}
    void OnWindowUnprepared(MControl&) override {}
    void SetOwner(MControl&, MControl*, bool) override {}
    void SetNativeParent(MControl&, intptr_t) override {}
    [[nodiscard]] intptr_t GetNativeHandle(MControl& root) override;
    [[nodiscard]] void* GetSystemWindow(MControl&) override { return nullptr; }
    [[nodiscard]] bool IsVisible(MControl& root) override;
    void SetCaption(MControl&) override {}
    void Move(MControl& root, MPoint point) override;
    void Resize(MControl& root, MPoint size) override;
    void SetShape(MControl&, const MAlphaMask&) override {}
    [[nodiscard]] MRect GetFrame(MControl& root) override;
    void Maximize(MControl& root) override;
    void Restore(MControl& root) override;
    void Minimize(MControl& root) override;
    [[nodiscard]] bool IsMaximized(MControl& root) override;
    [[nodiscard]] bool IsMinimized(MControl& root) override;
    void Show(MControl& root) override;
    void Hide(MControl& root) override;
    void Activate(MControl& root) override;
    [[nodiscard]] MControl* GetActiveRoot() override { return activeRoot; }
    int32_t ProcessPending() override;
    void RunLoop(MControl& root) override;
    void ExitLoop(MControl& root, MModalValue result) override;
    void RunApplication() override;
    void Quit() override { isQuitting = true; }
    void DrawDragFrame(MControl& root, int32_t x, int32_t y, int32_t width, int32_t height) override;
    void Invalidate(MControl& root, const MRect& rect) override;
    void Update(MControl& root) override;
    [[nodiscard]] MDrawer* GetDrawer(MControl& root) override;
    bool CaptureToBitmap(MControl& root, MBitmap& bitmap) override;
    void SetCapture(MControl& root, bool isOn) override;
    void SetCursor(MControl& root, const MCursor& cursor) override;
    void ResetCursor(MControl&) override {}
    [[nodiscard]] MPoint GetCursorPosition() override { return user.GetMouse(); }
    [[nodiscard]] MPoint GetCursorPosition(MControl& root) override;
    void SetCursorPosition(MControl& root, MPoint point) override;
    void TrackMouseLeave(MControl& root, bool isOn) override;
    [[nodiscard]] MKeyModifiers GetModifiers() override { return user.GetModifiers(); }
    void SetClipboard(const MString& format, const MBuffer& data) override;
    [[nodiscard]] bool HasClipboard(const MString& format) override;
    [[nodiscard]] MBuffer GetClipboard(const MString& format) override;
    [[nodiscard]] int64_t GetTime() override { return time; }
    void SetAlarm(std::optional<int64_t> newAlarm) override { alarm = newAlarm; }
    void WakeUp() override;
    [[nodiscard]] int32_t GetScalePercent() override { return scalePercent; }
    [[nodiscard]] std::optional<bool> PrefersDark() override { return prefersDark; }

private:
    enum class Message { None, Action, Timer, Paint };
    struct Action {
        int64_t time;
        std::function<void()> run;
    };

    [[nodiscard]] Message ProcessNext();
    /// When something will happen by itself; none for never.
    [[nodiscard]] std::optional<int64_t> GetNextTime() const;
    /// True if something happened, at once or after some time.
    [[nodiscard]] bool WaitForMessage();
    void PutFrame(MControl& root, const MRect& frame);

    MWindows* owner = nullptr;
    MWindowMessages messages{*this};
    MHeadlessUser user{*this};
    std::vector<MRect> workAreas;
    std::vector<MControl*> windows;  ///< from the lowest to the topmost
    MControl* activeRoot = nullptr;
    MControl* capturingRoot = nullptr;
    std::deque<Action> actions;
    int64_t lastPost = 0;
    std::atomic<bool> isWoken = false;
    bool isQuitting = false;
    int64_t time = 0;
    int64_t lastAction = 0;
    std::optional<int64_t> alarm;
    int32_t scalePercent = 100;
    std::optional<bool> prefersDark;
    int32_t patience = 0;
    int64_t wakeUps = 0;
    std::vector<MRect> dragFrames;
    std::vector<std::pair<MString, MBuffer>> clipboard;
};
