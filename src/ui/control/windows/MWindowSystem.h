#pragma once

#include "foundation/base/MObject.h"
#include "foundation/text/MString.h"
#include "ui/control/MCursor.h"
#include "ui/control/MSystemEvent.h"
#include "ui/control/kinds/MModalValue.h"
#include "ui/drawing/MDrawer.h"

#include <cstdint>
#include <optional>

class MAlphaMask;
class MBuffer;
class MControl;
class MWindows;

/// The toolkit's whole view of the platform: windows, their messages, pointers, the clipboard. What it hears
/// it hands to the roots (`MWindowMessages`); what they want shown it shows.
///
/// Every control that is passed is a root. One that has no window here is no fault: nothing happens, and what
/// is returned is false, empty or zero. Points and rectangles are in pixels, inclusive, of the screen unless
/// something else is said. Everything is called on the thread that called `Initialize`, but for `Show`,
/// `Hide` and `WakeUp`, which any thread may call. Only `Initialize`, `CreateWindow` and the clipboard raise.
class MWindowSystem : public MObject {
public:
    struct Info {
        MString description;
        MString maker;
    };

    [[nodiscard]] virtual uint32_t GetCapabilities() = 0;
    [[nodiscard]] virtual Info GetInfo() = 0;
    /// Opens the platform. `owner` outlives this object. Raises an `MException` that says what is missing and
    /// what to do; the process can go on without windows.
    virtual void Initialize(MWindows& owner) = 0;
    /// The part of a monitor that is free for windows: of the one nearest to the point, else of the primary.
    [[nodiscard]] virtual MRect GetWorkArea(std::optional<MPoint> point) = 0;
    /// What is switched off is dropped as it comes.
    virtual void EnableEvents(bool mouse, bool keyboard) = 0;

    // The life of a window.
    /// Makes a hidden window without frame. `parent` is a native handle that it is embedded in or belongs to,
    /// 0 for none. Raises "Sorry, your system is out of resources.\n\nInformation: Could not create a
    /// window.".
    virtual void CreateWindow(MControl& root, const MString& caption, MPoint size, MPoint position,
                              intptr_t parent, bool isInTaskbar) = 0;
    virtual void DestroyWindow(MControl& root) = 0;
    virtual void OnWindowPrepared(MControl& root) = 0;
    virtual void OnWindowUnprepared(MControl& root) = 0;
    /// The window stays above that of `owner`, and is minimized with it; null ends that.
    virtual void SetOwner(MControl& root, MControl* owner, bool keepTopmost) = 0;
    /// Embeds the window into a foreign one, by its native handle; 0 makes it a window of its own.
    virtual void SetNativeParent(MControl& root, intptr_t handle) = 0;
    [[nodiscard]] virtual intptr_t GetNativeHandle(MControl& root) = 0;
    [[nodiscard]] virtual void* GetSystemWindow(MControl& root) = 0;
    [[nodiscard]] virtual bool IsVisible(MControl& root) = 0;
    /// From the control's caption, translated.
    virtual void SetCaption(MControl& root) = 0;
    virtual void Move(MControl& root, MPoint point) = 0;
    virtual void Resize(MControl& root, MPoint size) = 0;
    /// The window consists of the pixels whose alpha is above 0.
    virtual void SetShape(MControl& root, const MAlphaMask& mask) = 0;
    [[nodiscard]] virtual MRect GetFrame(MControl& root) = 0;
    /// Fills the work area of the window's monitor.
    virtual void Maximize(MControl& root) = 0;
    virtual void Restore(MControl& root) = 0;
    virtual void Minimize(MControl& root) = 0;
    [[nodiscard]] virtual bool IsMaximized(MControl& root) = 0;
    [[nodiscard]] virtual bool IsMinimized(MControl& root) = 0;
    virtual void Show(MControl& root) = 0;
    virtual void Hide(MControl& root) = 0;
    virtual void Activate(MControl& root) = 0;
    /// Null if the user works with another program.
    [[nodiscard]] virtual MControl* GetActiveRoot() = 0;

    // The message loop.
    static constexpr int32_t MaximumPending = 1024;
    static constexpr int32_t MaximumPaintsInRow = 11;
    /// Handles what is waiting, at most so many messages, and at most so many paints and timers in a row, so
    /// that a permanent repaint cannot hold it. Does not wait. Returns how many there were.
    virtual int32_t ProcessPending() = 0;
    /// Until the root's `modalResult` is set, `ExitLoop` was called for it, or the application quits.
    virtual void RunLoop(MControl& root) = 0;
    /// Ends the loop of a root with a result. The first result stays.
    virtual void ExitLoop(MControl& root, MModalValue result) = 0;
    /// Until `Quit`.
    virtual void RunApplication() = 0;
    virtual void Quit() = 0;

    // Pixels.
    /// Shows or, called again with the same values, removes the outline of a window to be.
    virtual void DrawDragFrame(MControl& root, int32_t x, int32_t y, int32_t width, int32_t height) = 0;
    /// A part of the window, in its coordinates, will be painted. Right and bottom edge are exclusive here.
    virtual void Invalidate(MControl& root, const MRect& rect) = 0;
    /// Paints it now.
    virtual void Update(MControl& root) = 0;
    /// What paints the window's back buffer.
    [[nodiscard]] virtual MDrawer* GetDrawer(MControl& root) = 0;
    /// Copies what the window shows. False if that cannot be had.
    virtual bool CaptureToBitmap(MControl&, MBitmap&) { return false; }

    // Mouse and keyboard.
    virtual void SetCapture(MControl& root, bool isOn) = 0;
    virtual void SetCursor(MControl& root, const MCursor& cursor) = 0;
    virtual void ResetCursor(MControl& root) = 0;
    [[nodiscard]] virtual MPoint GetCursorPosition() = 0;
    /// In the window's coordinates.
    [[nodiscard]] virtual MPoint GetCursorPosition(MControl& root) = 0;
    /// In the window's coordinates. Moves of the mouse that are still on their way are dropped.
    virtual void SetCursorPosition(MControl& root, MPoint point) = 0;
    /// Has `MControl::OnMouseLeave` called once when the mouse leaves the window.
    virtual void TrackMouseLeave(MControl& root, bool isOn) = 0;
    [[nodiscard]] virtual MKeyModifiers GetModifiers() = 0;

    // The clipboard. A format is `TextFormat`, UTF-8, or a name that both sides know. Failures raise "Error
    // opening system clipboard. ", "Error accessing clipboard. ", "System memory error occured. " or "No data
    // present in clipboard. " (0).
    static constexpr const char* TextFormat = "text";
    virtual void SetClipboard(const MString& format, const MBuffer& data) = 0;
    [[nodiscard]] virtual bool HasClipboard(const MString& format) = 0;
    [[nodiscard]] virtual MBuffer GetClipboard(const MString& format) = 0;

    // Time. Once `WakeUp` was called, or the alarm's time has come, the loop that runs calls
    // `MWindows::Attend`; without either a loop sleeps.
    /// Milliseconds since some moment; never backwards.
    [[nodiscard]] virtual int64_t GetTime() = 0;
    /// The time for the next `Attend`; none turns the alarm off. There is one.
    virtual void SetAlarm(std::optional<int64_t> time) = 0;
    virtual void WakeUp() = 0;

    // What the user has chosen for the whole desktop. After a change `MWindows::UpdateDesktop` is called.
    /// How much larger than usual everything is to be, in percent.
    [[nodiscard]] virtual int32_t GetScalePercent() { return 100; }
    /// Whether programs are to be dark rather than light; none if the desktop does not say.
    [[nodiscard]] virtual std::optional<bool> PrefersDark() { return std::nullopt; }
};
