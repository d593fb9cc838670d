#pragma once

#include "foundation/base/MFlagManager.h"

#include <array>
#include <cstddef>
#include <initializer_list>

/// What a control is or does, each by yes or no. What is on in the beginning is told in `MControlFlags`.
enum class MControlFlag : uint8_t {
    // What a control is for its parent. The first ones have operations of their own (`MControl::SetVisible`).
    Visible,
    Vanishing,  ///< about to become invisible
    Enabled,
    ChildrenEnabled,  ///< whether all parents are enabled, handed on to each control
    Collapsable,
    Collapsed,
    OwnerLayoutSet,      ///< a layout holds the control
    PositionIsAbsolute,  ///< its layout does not shift it
    OverlayControl,      ///< lies over its parent's client area, outside of any layout
    AcceptsEvents,
    SwallowsNothing,  ///< in a modal window, lets presses on to what lies behind

    // Sizes and layouts.
    AutoDetectMinimalSize,
    MinimalSizeLocked,
    Resized,      ///< is to hear of its new size
    SaveMinimal,  ///< the style keeps the minimal size that was found
    UseLayouts,
    UseOverlays,
    IgnoreWidthInLayout,
    AdaptSize,
    AdaptX,
    AdaptY,
    Plastic,  ///< one dimension follows from the other, as of text that wraps
    PlasticAdaptSize,
    LayoutSaveRatio,

    // Mouse, keyboard and focus.
    HotTrack,      ///< is repainted when the mouse enters or leaves
    DrawsOnHover,  ///< does that by itself
    Pressable,     ///< shows a pressed left button
    RaisesPressEvent,
    TellsClicks,  ///< raises `Click::Left` by itself, also for the keyboard
    NoMouseCapture,
    HoverLocked,
    TakesMouseWhenInactive,  ///< also in an inactive window, which a press on it does not activate
    DoubleClicksAsClicks,
    LinkCursor,
    CursorFromParent,
    TabStop,
    AcceptsFocus,
    LeftDown,
    RightDown,
    MiddleDown,
    MouseInside,

    // Help and state.
    UseParentHelp,
    ShowHelp,
    ShowHelpKey,  ///< of a root: F1 shows help
    EnableSaveState,
    SaveSubControlState,
    SaveValue,  ///< what the control is set to belongs to the state of the window
    AttachedToStyle,
    Transparent,    ///< what lies behind shows through
    Inverted,       ///< in the colours of what is selected
    DefaultButton,  ///< what comes next: looks so, and takes Enter where nobody else does
    Checked,        ///< is switched on, and looks so

    // Of a root: its window.
    HasWindow,
    CloseOnEscape,
    CloseOnDeactivate,
    ConfirmClose,
    MoveToScreenCenter,
    AutoSaveState,
    SaveWindowPos,
    SaveWindowSize,
    StateLoaded,
    InTaskbar,
    Resizable,
    MaximizeAllowed,
    FullScreen,
    WindowMovable,
    LiveResizing,
    OpenedWithParent,
    KeepsApplicationAlive,
    AcceptsFiles,

    // Of a root: what is going on.
    Frozen,  ///< painting is suppressed
    LayoutValid,
    SizesValid,
    Active,
    Modal,
    ModalRunning,
    WindowMoving,
    WindowResizing,

    Count
};

/// A set of 96 flags.
class MControlFlags final {
public:
    MControlFlags() {
        using enum MControlFlag;
        for (const MControlFlag flag : {Visible,
                                        Enabled,
                                        ChildrenEnabled,
                                        AcceptsEvents,
                                        AutoDetectMinimalSize,
                                        UseLayouts,
                                        UseOverlays,
                                        AdaptSize,
                                        AdaptX,
                                        AdaptY,
                                        PlasticAdaptSize,
                                        DoubleClicksAsClicks,
                                        TabStop,
                                        AcceptsFocus,
                                        ShowHelp,
                                        ShowHelpKey,
                                        EnableSaveState,
                                        SaveSubControlState,
                                        MoveToScreenCenter,
                                        SaveWindowPos,
                                        SaveWindowSize,
                                        LiveResizing})
            Set(flag, true);
    }

    [[nodiscard]] bool Has(MControlFlag flag) const { return GetWord(flag).TestFlags(GetMask(flag)); }
    void Set(MControlFlag flag, bool isOn) {
        words[static_cast<size_t>(flag) / WordSize].AssignFlags(GetMask(flag), isOn);
    }

private:
    static constexpr size_t WordSize = 32;
    using Words = std::array<MFlagManager<WordSize>, 3>;
    static_assert(static_cast<size_t>(MControlFlag::Count) <= WordSize * std::tuple_size_v<Words>);

    [[nodiscard]] const MFlagManager<WordSize>& GetWord(MControlFlag flag) const {
        return words[static_cast<size_t>(flag) / WordSize];
    }
    [[nodiscard]] static constexpr uint32_t GetMask(MControlFlag flag) {
        return uint32_t{1} << static_cast<size_t>(flag) % WordSize;
    }

    Words words;
};
