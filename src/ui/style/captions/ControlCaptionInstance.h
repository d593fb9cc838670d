#pragma once

#include "foundation/base/MObject.h"
#include "ui/control/MControlRef.h"
#include "ui/geometry/MRect.h"
#include "ui/style/captions/MCaptionButton.h"

#include <memory>
#include <vector>

class MCaptionPanel;
class MStyle;

/// What a control with a caption has in it beside its title: the panel with its buttons, a child of the
/// control that lies over its frame. Kept as a property of the control by `Tag`.
class ControlCaptionInstance final : public MObject {
public:
    static constexpr uint32_t Tag = 0x54504143;  // "CAPT"

    explicit ControlCaptionInstance(MControl& owner);
    /// The panel goes with it, if it still is there.
    ~ControlCaptionInstance() override;

    /// That of a control, or null.
    [[nodiscard]] static ControlCaptionInstance* Find(const MControl& owner);

    /// Adds a button of the name "Button{0}", counted from 1, to the left of those that are there. It is
    /// there after the next measuring.
    MCaptionButton& AddButton(MStdIcon icon);
    /// Adds the button that switches what is in a panel on and off.
    MCaptionButton& AddEnableButton();
    /// Makes and takes away controls until each button that is shown has one, and measures them. The panel
    /// then lies at the top left, so that it does not keep the control from becoming smaller.
    void Update(MStyle& style);
    /// Puts the panel at the right end of the caption.
    void Arrange(const MRect& caption) const;

    /// Null once it has ended.
    [[nodiscard]] MCaptionPanel* GetPanel() const;
    /// Of all buttons, in pixels.
    [[nodiscard]] int32_t GetWidth() const;

private:
    MControl& owner;
    MControlRef panel;
    std::vector<std::unique_ptr<MCaptionButton>> buttons;
    int32_t addedCount = 0;
};
