#pragma once

#include "ui/control/MControl.h"

/// A strip with a mark for each step of several ones, of which those up to the present one stand out.
class MTimeLine : public MControl {
public:
    explicit MTimeLine(MControl* parent = nullptr, const MString& name = MString());

    void SetSteps(int32_t newCount, int32_t newCurrent);

    void GetMinimalContentSize(int32_t& x, int32_t& y) override;
    void PaintContent(MDrawer& drawer) override;

private:
    int32_t count = 0;
    int32_t current = 0;
};
