#pragma once

#include "foundation/base/MFlagManager.h"
#include "foundation/base/MObject.h"
#include "foundation/events/MEvent.h"
#include "ui/control/MOnControlParams.h"
#include "ui/control/kinds/MStdIcon.h"

#include <memory>
#include <vector>

class MControl;

/// A button in a caption: what it shows and what it does. The control that shows it belongs to the caption.
class MCaptionButton : public MObject, public MFlagManager<16> {
public:
    enum Flag : uint16_t { Enabled = 1, Switched = 2 };

    MCaptionButton(const MString& name, MStdIcon icon) : name(name), icon(icon) { SetFlags(Enabled); }

    [[nodiscard]] const MString& GetName() const { return name; }
    [[nodiscard]] virtual MStdIcon GetIcon(MControl&) { return icon; }
    /// Whether the caption of this control has the button now.
    [[nodiscard]] virtual bool IsShown(MControl&) { return true; }
    /// The button was clicked. That may end the owner, and the button.
    virtual void Perform(MControl& owner) { onClick.Fire({&owner, {}}); }
    [[nodiscard]] MEvent<MOnClickParams>& OnClick() { return onClick; }

private:
    MString name;
    MStdIcon icon;
    MEvent<MOnClickParams> onClick;
};

/// Switches all that is in a panel on and off; the panel itself, and so its caption, stays.
class MCaptionButtonEnable final : public MCaptionButton {
public:
    MCaptionButtonEnable() : MCaptionButton("Enable", MStdIcon::Enable) { SetFlags(Switched); }
    void Perform(MControl& owner) override;
};

/// The buttons that the style gives to captions by itself, the one at the right edge first: "Close",
/// "Maximize", "Minimize", "Collapse" and "Help".
[[nodiscard]] std::vector<std::unique_ptr<MCaptionButton>> MMakeStockCaptionButtons();
