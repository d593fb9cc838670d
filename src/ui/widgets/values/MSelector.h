#pragma once

#include "ui/widgets/buttons/MButton.h"
#include "ui/widgets/values/MControlValue.h"

#include <vector>

/// All values of a value, of which there may not be many, as buttons in a row; that of the present one is
/// switched on, and has the focus.
///
/// Attributes: "selected", the index of a value.
class MSelector : public MControlValue {
public:
    explicit MSelector(MControl* parent = nullptr, const MString& name = MString());

    void OnValueChanged() override;
    void LoadFromXml(MXMLItem& item) override;
    [[nodiscard]] MContent* GetContent() override { return nullptr; }
    void GetMinimalContentSize(int32_t& x, int32_t& y) override;
    bool PreviewEvent(MControl* target, const MSystemEvent& event) override;
    void WriteHelpInfo(MXMLItem& item) override;

private:
    void MakeButtons(int32_t count);
    void FocusChosen();
    void Choose(const MOnNotifyParams& params);

    std::vector<MButton*> buttons;  ///< by index; children
    MLayout& row;
    int32_t index = 0;  ///< what the buttons are bound to
};
