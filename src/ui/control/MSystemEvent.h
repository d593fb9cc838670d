#pragma once

#include "ui/geometry/MPoint.h"

#include <cstdint>

class MControl;

/// Which buttons and keys are held, combined with `|`.
enum MKeyModifiers : uint8_t {
    MModifierNone = 0,
    MModifierLeftButton = 1,
    MModifierMiddleButton = 2,
    MModifierRightButton = 4,
    MModifierControl = 16,
    MModifierAlt = 32,
    MModifierShift = 64,
};

constexpr MKeyModifiers operator|(MKeyModifiers left, MKeyModifiers right) {
    return static_cast<MKeyModifiers>(static_cast<uint8_t>(left) | static_cast<uint8_t>(right));
}

/// The keys that have a meaning of their own, by their numbers in `MSystemEvent`. Letters and digits have
/// those of their upper-case characters.
enum MKey : int32_t {
    MKeyBackspace = 8,
    MKeyTab = 9,
    MKeyEnter = 13,
    MKeyShift = 16,
    MKeyControl = 17,
    MKeyAlt = 18,
    MKeyEscape = 27,
    MKeySpace = 32,
    MKeyPageUp = 33,
    MKeyPageDown = 34,
    MKeyEnd = 35,
    MKeyHome = 36,
    MKeyLeft = 37,
    MKeyUp = 38,
    MKeyRight = 39,
    MKeyDown = 40,
    MKeyInsert = 45,
    MKeyDelete = 46,
    MKeyMenu = 93,  ///< the one that opens context menus
    MKeyNumpad0 = 96,
    MKeyNumpadMultiply = 106,
    MKeyNumpadAdd = 107,
    MKeyNumpadSubtract = 109,
    MKeyNumpadDecimal = 110,
    MKeyNumpadDivide = 111,
    MKeyF1 = 112,
    MKeyF10 = 121,
};

/// What happened. Up to `MouseLeave` the mouse did it, up to `Wheel` with a place that says to whom.
enum class MEventType : uint32_t {
    LeftDown,
    RightDown,
    MiddleDown,
    LeftUp,
    RightUp,
    MiddleUp,
    LeftDoubleClick,
    RightDoubleClick,
    MiddleDoubleClick,
    MouseMove,
    Wheel,
    MouseEnter,
    MouseLeave,
    KeyDown,
    KeyUp,
    Character,
    GotFocus,
    LostFocus,
    Activation,  ///< of a window: `flag` for active, `other` the root that is active instead
    CollapseChanged,
    BecomingInvisible,
    Drag,
};

/// The one record that travels through a tree of controls.
struct MSystemEvent {
    MEventType type = MEventType::MouseMove;
    /// In window coordinates; a receiver converts it to its own by `MControl::GetOwnPoint`.
    MPoint point = {};
    MKeyModifiers modifiers = MModifierNone;
    int32_t wheelDelta = 0;     ///< of `Wheel`: steps, positive away from the user, never 0
    int32_t key = 0;            ///< of `KeyDown` and `KeyUp`: an `MKey` or the like
    bool isRepeated = false;    ///< of `KeyDown`: the key is held since before
    char16_t character = 0;     ///< of `Character`: a unit of UTF-16
    bool flag = false;          ///< of `Activation`
    MControl* other = nullptr;  ///< of `Activation`: a root, or null

    [[nodiscard]] bool IsMouse() const { return type < MEventType::KeyDown; }
    [[nodiscard]] bool HasPosition() const { return type < MEventType::MouseEnter; }
    [[nodiscard]] bool IsPress() const { return type <= MEventType::MiddleDown; }
    [[nodiscard]] bool IsRelease() const {
        return type >= MEventType::LeftUp && type <= MEventType::MiddleUp;
    }
    [[nodiscard]] bool IsDoubleClick() const {
        return type >= MEventType::LeftDoubleClick && type <= MEventType::MiddleDoubleClick;
    }
    [[nodiscard]] bool IsKeyboard() const {
        return type >= MEventType::KeyDown && type <= MEventType::Character;
    }
    [[nodiscard]] bool Has(MKeyModifiers mask) const { return (modifiers & mask) == mask; }
};
