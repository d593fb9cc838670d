#pragma once

#include "ui/control/MLayout.h"

/// Controls in the place of one another, of which one is visible: the pages of a wizard. The one that is
/// shown takes all of the rectangle.
class MLayoutSwitch final : public MLayout {
public:
    using MLayout::MLayout;

    /// A control that comes while another one is visible is hidden.
    void Attach(MControl& control) override;
    [[nodiscard]] MRect Arrange(MControl& owner, const MRect& rect) override;
    void Measure(MControl& owner, MLayoutNeeds& needs, const SizeComputer& computer) override;
    /// Of all controls, hidden ones too.
    [[nodiscard]] MFlexibility GetFlexibility() override;

    /// Shows one of the controls, null for the first, and hides the others, in one step.
    void SetActive(MControl* control);
    /// The one that is visible, or null.
    [[nodiscard]] MControl* GetActive() const;

    bool measureHidden = false;  ///< whether there is to be room for the hidden controls as well
};
