#pragma once

#include "foundation/base/MObject.h"
#include "ui/window/MWindowPainter.h"
#include "ui/window/x11/display/MXDisplay.h"
#include "ui/window/x11/display/MXPresenter.h"

#include <memory>
#include <utility>

class MAlphaMask;

/// The window of a root on a display, kept with the root. It has no frame and no background of its own, so
/// that nothing flickers between two paints.
///
/// A root that closes when the user turns elsewhere is a popup: it, and a root that takes no focus, as a
/// tooltip, is none of the window manager's business.
class MXWindow final : public MObject {
public:
    static constexpr uint32_t Key = 0x57313158;  // "X11W"

    [[nodiscard]] static MXWindow* Of(const MControl& root) { return root.GetProperty<MXWindow>(Key); }

    /// Hidden. The display outlives the window. Raises "Sorry, your system is out of
    /// resources.\n\nInformation: Could not create a window." (0).
    MXWindow(MXDisplay& display, const MRect& frame, xcb_window_t owner, bool isInTaskbar);
    ~MXWindow() override;

    [[nodiscard]] xcb_window_t GetId() const { return id; }
    /// On the screen, as far as is known.
    [[nodiscard]] const MRect& GetFrame() const { return frame; }
    [[nodiscard]] bool IsShown() const { return isShown; }
    [[nodiscard]] bool IsPopup() const { return isPopup; }
    /// Whether the window manager decides on its place and focus.
    [[nodiscard]] bool IsManaged() const { return !isUnmanaged && !isEmbedded; }

    void SetCaption(const MString& caption);
    void SetIcons(const MList<MBitmap>& pictures) const;
    void SetOwner(xcb_window_t owner);
    /// Puts it into another program's window, or with `XCB_WINDOW_NONE` back on the screen.
    void Embed(xcb_window_t parent);
    void SetShape(const MAlphaMask& mask);
    void SetCursor(xcb_cursor_t cursor);
    /// Asks for another frame, and takes it for given.
    void Put(const MControl& root, const MRect& newFrame);
    /// The frame that an event tells of; returns false if it is older than what has been asked for.
    bool TakeFrame(const xcb_configure_notify_event_t& event);
    /// Where the window begins, as an event of the mouse shows.
    void TakeOrigin(MPoint origin) { frame = frame.Shifted(origin - frame.GetTopLeft()); }
    void SetReparented(bool isNow) { isReparented = isNow; }

    void Show(const MControl& root);
    void Hide();
    /// Tells the manager of sizes and roles; before the window is shown and whenever they change.
    void TellManager(const MControl& root) const;
    void Minimize() const;
    /// Brings it to the front, out of the taskbar if it is there, and asks for the keyboard.
    void Activate(xcb_window_t activeWindow);
    /// Lets the manager know that the user has turned to it.
    void TellUserTime() const;
    [[nodiscard]] bool IsMinimized() const;

    void Invalidate(const MRect& part) { dirty = dirty.United(part); }
    void InvalidateAll() { dirty = MRect::FromSize(0, 0, frame.GetWidth(), frame.GetHeight()); }
    [[nodiscard]] bool NeedsPaint() const { return isShown && !dirty.IsEmpty(); }
    /// Paints what is dirty, and shows it.
    void Paint(MControl& root);
    /// What paints the window, once the server has done with its picture.
    [[nodiscard]] MDrawer& GetDrawer();
    /// In place of memory, as it is in the beginning.
    void SetPainter(std::shared_ptr<MWindowPainter> newPainter) { painter = std::move(newPainter); }
    [[nodiscard]] MWindowPainter& GetPainter() const { return *painter; }
    [[nodiscard]] const MXPresenter& GetPresenter() const { return *presenter; }

    MRect savedFrame;  ///< before it was maximized
    bool isMaximized = false;
    bool isLeaveTracked = false;

private:
    void TellSizes(const MControl& root) const;
    [[nodiscard]] MRect GetFrameOf(const xcb_configure_notify_event_t& event) const;

    MXDisplay& display;
    const MXConnection& connection;
    xcb_window_t id;
    MRect frame;
    MRect dirty;
    bool isInTaskbar;
    bool isShown = false;
    bool isPopup = false;
    bool isUnmanaged = false;
    bool isEmbedded = false;
    bool isReparented = false;
    uint32_t lastRequest = 0;  ///< the number of the last request for another frame; 0 for none
    xcb_cursor_t shownCursor = XCB_CURSOR_NONE;
    /// A paint in progress holds it too, for its handlers may end the root.
    std::shared_ptr<MWindowPainter> painter;
    std::unique_ptr<MXPresenter> presenter;
};
