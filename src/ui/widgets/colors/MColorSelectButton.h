#pragma once

#include "ui/image/MColor.h"
#include "ui/widgets/buttons/MButton.h"

/// Shows a colour, and lets the user choose another one in a window of its own. Raises `OnChange()` then.
///
/// Attributes: "value", hexadecimal digits. With `SaveValue` the window's state has "value".
class MColorSelectButton : public MButton {
public:
    explicit MColorSelectButton(MControl* parent = nullptr, const MString& name = MString());

    /// Raises nothing.
    void SetColor(MColor newColor);
    [[nodiscard]] MColor GetColor() const { return color; }

    using MButton::OnClick;
    void OnClick(MPoint point) override;
    void LoadFromXml(MXMLItem& item) override;
    void SaveValueState(MXMLItem& item) override;
    void LoadValueState(MXMLItem& item) override;

private:
    MColor color;
};
