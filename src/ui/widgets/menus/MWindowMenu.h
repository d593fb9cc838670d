#pragma once

#include "ui/control/MContainers.h"

#include <cstdint>

class MButton;

/// A popup that looks like a menu and holds any controls, with buttons below them if it is to have some. Like a menu it
/// opens at a rectangle of the screen and closes by Esc, by a press anywhere else, or when the user turns to another
/// window.
class MWindowMenu : public MControl {
public:
    /// Combined with `|`.
    enum Buttons : uint8_t { None = 0, OK = 1, Cancel = 2, Close = 4 };

    explicit MWindowMenu(const MString& name = MString(), uint8_t buttons = None);

    /// Where the controls go.
    [[nodiscard]] MContainer& GetContainer() const { return *container; }
    /// "okbutton", "cancelbutton" and "closebutton"; null for one that it does not have.
    [[nodiscard]] MButton* GetButton(Buttons which) const;
    void SetButtons(uint8_t buttons);
    /// Returns when it was closed: `Ok` by that button, else `Cancel`.
    MModalValue RunAt(MControl& owner, const MRect& anchorOnScreen);

    /// "okbutton", "cancelbutton", "closebutton": whether it has them.
    void LoadFromXml(MXMLItem& item) override;
    void OnPrepared() override;

private:
    MContainer* const container;  ///< a child
    MControlContainer* const buttonRow;
    MRect anchor;  ///< on the screen
};
