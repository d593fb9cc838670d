#pragma once

#include "ui/widgets/buttons/MRepeaterButton.h"
#include "ui/widgets/values/MControlValue.h"

/// The text of a value with two buttons beside it that go to the value before and to the next one. A click
/// shows all of them.
///
/// Attributes: "selected", the index of a value.
class MSwitcher : public MControlValue {
public:
    explicit MSwitcher(MControl* parent = nullptr, const MString& name = MString());

    void OnValueChanged() override;
    void LoadFromXml(MXMLItem& item) override;
    [[nodiscard]] MAlignment GetContentAlignment() override { return MAlignLeft; }
    [[nodiscard]] MRect GetContentRectangle() override;
    void PrepareContent() override;
    void GetMinimalContentSize(int32_t& x, int32_t& y) override;
    bool ProcessEvent(const MSystemEvent& event) override;
    void WriteHelpInfo(MXMLItem& item) override;

private:
    [[nodiscard]] MRepeaterButton& AddButton(const char* name, MStdIcon icon);
    [[nodiscard]] MPoint GetButtonSize();
    void GoUp(const MOnClickParams&);
    void GoDown(const MOnClickParams&);

    MRepeaterButton& upButton;
    MRepeaterButton& downButton;
};
