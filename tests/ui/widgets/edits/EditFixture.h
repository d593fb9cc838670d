#pragma once

#include "tests/ui/control/ControlFixture.h"
#include "ui/widgets/edits/MMultiLineEdit.h"
#include "ui/widgets/edits/MTextClipboard.h"

/// A window with an edit that has the focus.
template <class Edit>
struct EditWindow {
    EditWindow() {
        edit.Set(MControlFlag::OverlayControl);
        edit.Set(MControlFlag::AdaptSize, false);
        edit.position = {10, 10};
        edit.size = {120, edit.IsMultiLine() ? 90 : 24};
    }

    MControl root;
    Edit edit{&root, "edit"};
};

class EditTest : public ControlTest {
protected:
    ~EditTest() noexcept override = default;

    void Press(int32_t key, MKeyModifiers held = MModifierNone) {
        user.HoldKeys(held);
        user.PressKey(key);
        user.HoldKeys(MModifierNone);
    }
    /// Whether the same pixels are there as when all of it is painted anew.
    bool IsPaintedWhole(MControl& root) {
        root.RedrawNow();
        const std::vector<MColor> shown = GetPixels(root);
        root.Invalidate();
        root.RedrawNow();
        return shown == GetPixels(root);
    }

private:
    std::vector<MColor> GetPixels(MControl& root) {
        const MBitmap& picture = system.GetPicture(root);
        return {picture.GetPixels(), picture.GetPixels() + picture.GetWidth() * picture.GetHeight()};
    }
};
