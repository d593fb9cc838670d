#pragma once

#include "ui/widgets/values/MControlValueVerticalDragging.h"

/// A locator on a bar, which the mouse drags along it. With a second value it has two ends, of which the
/// second one never comes before the first; the mouse moves the nearer one, the keyboard the first, or with
/// Shift the second.
///
/// Attributes: "maxvalue", a text of the second value, which a document gives the tracker by it. The window's
/// state has "MaxValue".
class MTracker : public MControlValueVerticalDragging {
public:
    explicit MTracker(MControl* parent = nullptr, const MString& name = MString());

    /// With the same range as the first one. Outlives the tracker, or is taken over; null for one end only.
    void SetMaxValue(MValue* newValue);
    void SetMaxValue(std::unique_ptr<MValue> newValue);
    [[nodiscard]] MValue* GetMaxValue() const { return maxValue; }

    void OnValueChanged() override;
    [[nodiscard]] MString GetValueText() override;
    void LoadFromXml(MXMLItem& item) override;
    void GetMinimalContentSize(int32_t& x, int32_t& y) override;
    void PaintContent(MDrawer& drawer) override;
    bool ProcessEvent(const MSystemEvent& event) override;
    void SaveValueState(MXMLItem& item) override;
    void LoadValueState(MXMLItem& item) override;

protected:
    [[nodiscard]] MValue& GetActiveValue() const override;
    [[nodiscard]] MString GetEditCaption() const override;
    [[nodiscard]] double GetGrabbedPosition(MPoint point) override;
    [[nodiscard]] double GetDraggedPosition(MPoint point) override;

private:
    [[nodiscard]] double GetPosition(MPoint point);
    [[nodiscard]] bool IsNearerToMaximum(MPoint point);

    std::unique_ptr<MValue> ownMaxValue;
    MValue* maxValue = nullptr;
    bool isMaximumActive = false;
    double grabOffset = 0;  ///< from the locator's middle to where the mouse holds it
};
