#pragma once

#include "ui/control/MControl.h"
#include "ui/control/windows/MTimer.h"
#include "ui/widgets/menus/MMenuItemBaseWithFeatures.h"
#include "ui/widgets/menus/MPopupPlace.h"

#include <cstdint>

class MMenuRows;

/// Hears of a menu that it has opened, so that the keyboard can walk along a row of them.
class MMenuNeighbours {
public:
    /// Opens the menu before (-1) or after (1) the one that is open. Returns whether there is one.
    virtual bool OpenNeighbour(int32_t step) = 0;
    virtual void OnMenuClosed() = 0;

protected:
    ~MMenuNeighbours() = default;
};

/// A popup with rows to choose from, in a window of its own. It stands over the window that has opened it, which
/// goes on running, and closes when an item is chosen, by Esc, by a press anywhere else, or when the user turns to
/// another window.
///
/// Whoever derives has the items. A menu may be opened again and again; items are changed while it is closed.
class MMenuBase : public MControl, private MTimer {
public:
    explicit MMenuBase(const MString& name = MString());

    /// How long the mouse rests on an item until its sub-menu opens, in milliseconds.
    static constexpr int32_t HoverDelay = 250;

    /// Opens below a rectangle of the screen, or above it where there is no room, and returns at once. Nothing
    /// happens without items.
    void Open(MControl& owner, const MRect& anchorOnScreen);
    /// Opens a context menu of `owner` at a point in its coordinates.
    void OpenAt(MControl& owner, MPoint point);
    /// Closes this menu and those opened from it.
    void Close();
    /// Closes the menu that this one was opened from, and all others.
    void CloseAll() { GetTopMenu().Close(); }
    [[nodiscard]] bool IsOpen() const { return isOpen; }
    /// An item of the open menu, or the first selectable one, is where the keyboard works, and is seen.
    void FocusItem(int32_t index);
    void FocusFirstItem();

    [[nodiscard]] virtual int32_t GetItemCount() const = 0;
    [[nodiscard]] virtual MMenuItemBaseWithFeatures& GetItemFeatures(int32_t index) const = 0;

    bool ProcessEvent(const MSystemEvent& event) override;
    void OnPrepared() override;
    void OnClosed() override;
    void OnHidden() override;
    void OnTimer() override;

    int32_t minimalWidth = 0;               ///< in pixels
    MMenuNeighbours* neighbours = nullptr;  ///< of a menu of a bar; not owned

protected:
    /// Tells the handlers of this menu that an item of it, or of one of its sub-menus, was chosen.
    virtual void RaiseItem(MMenuItemBaseWithFeatures& item) = 0;

private:
    friend class MMenuRows;

    void OpenOnSide(MControl& newOwner, const MRect& newAnchor, MPopupSide newSide);
    [[nodiscard]] MMenuBase& GetTopMenu();
    /// Whether a root is one of the menus that are open together with this one, or was opened over one.
    [[nodiscard]] bool IsAmongMenus(MControl* other);
    /// The part of the screen that the menu opens in.
    [[nodiscard]] MRect GetRoom() const { return MGetPopupRoom(anchor); }

    // What the rows find.
    void OpenSubMenu(int32_t row);
    void CloseSubMenu();
    /// The mouse or the keyboard is on another row.
    void OnRowChanged();
    /// The mouse has come to this menu: the item that it belongs to is the one that the mouse went over.
    void OnEntered();
    void Choose(int32_t row);
    void OnKeyLeft();
    void OnKeyRight();

    MMenuRows* const rows;  ///< a child
    MControlRef owner;
    MRect anchor;  ///< on the screen
    MPopupSide side = MPopupSide::Below;
    MMenuBase* parentMenu = nullptr;  ///< whose item this is a sub-menu of
    int32_t openRow = -1;             ///< whose sub-menu is open
    bool isOpen = false;
    bool isLeft = false;     ///< for another window
    bool wasActive = false;  ///< until it was closed, so that its owner is to be active again
};
