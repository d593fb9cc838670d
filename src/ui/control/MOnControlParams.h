#pragma once

#include "foundation/text/MString.h"
#include "ui/control/MSystemEvent.h"

class MControl;

// What handlers of controls' events get. Nothing in them is owned.

/// `control` was pressed or clicked at `point`, in its own coordinates.
struct MOnClickParams {
    MControl* control = nullptr;
    MPoint point;
};

/// The text of `control` is now, or is about to be, `text`.
struct MOnStringParams {
    MControl* control = nullptr;
    MString text;
};

/// The item `id` of the menu `control` was chosen.
struct MOnMenuParams {
    MControl* control = nullptr;
    int32_t id = 0;
    MString text;
};

/// Something happened to `item` of the list, tree or menu `control`; null for none of its items.
template <class T>
struct MOnItemParams {
    MControl* control = nullptr;
    T* item = nullptr;
};

/// When a hot key fires: before the control that has the focus sees the key, when nobody has taken the press,
/// or when nobody has taken the release.
enum class MShortcutPhase : uint8_t { Preview, Press, Release };

/// A key reached `control`, which has hot keys.
struct MOnKeyboardShortcutParams {
    MControl* control = nullptr;
    MShortcutPhase phase = MShortcutPhase::Press;
    int32_t key = 0;
    MKeyModifiers modifiers = MModifierNone;
};

/// A hot key: the handler that it is bound to is called for exactly this key and these held keys. Buttons of
/// the mouse do not count.
struct MKeyboardShortcut {
    int32_t key = 0;
    MKeyModifiers modifiers = MModifierNone;
    MShortcutPhase phase = MShortcutPhase::Press;

    static constexpr uint8_t HeldKeys = MModifierControl | MModifierAlt | MModifierShift;

    [[nodiscard]] bool Accepts(const MOnKeyboardShortcutParams& params) const {
        return params.key == key && params.phase == phase &&
               (params.modifiers & HeldKeys) == (modifiers & HeldKeys);
    }
};
