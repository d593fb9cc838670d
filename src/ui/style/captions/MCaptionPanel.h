#pragma once

#include "ui/control/MContainers.h"
#include "ui/style/captions/MCaptionButton.h"

/// Marks the controls of caption buttons among the properties of controls.
inline constexpr uint32_t SpecialCaptionButtonTag = 0x42504143;  // "CAPB"

/// Shows a caption button. Those of windows are worked by the mouse alone, since the desktop has keys for what they do;
/// those of panels take the keyboard as buttons do.
class MCaptionButtonControl final : public MControl {
public:
    /// The button outlives the control. `owner` has the caption.
    MCaptionButtonControl(MControl& panel, MControl& owner, MCaptionButton& button);

    [[nodiscard]] MCaptionButton& GetButton() const { return button; }
    void GetMinimalContentSize(int32_t& x, int32_t& y) override;
    void PaintContent(MDrawer& drawer) override;
    /// What is done on the button does not reach the window, which would be moved by it.
    bool ProcessEvent(const MSystemEvent& event) override;

private:
    void OnButtonClick(const MOnClickParams& params);

    MControl& owner;
    MCaptionButton& button;
    int32_t pressedKey = 0;  ///< that clicks when it is released
};

/// The buttons of a caption, side by side.
class MCaptionPanel final : public MPanel {
public:
    explicit MCaptionPanel(MControl& owner);
};
