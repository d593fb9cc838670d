#pragma once

#include "tests/ui/control/ControlFixture.h"
#include "ui/control/MContainers.h"

/// Hears of the events of widgets, and tells of them in the log of the test.
class WidgetTest : public ControlTest, public MEventTarget {
protected:
    ~WidgetTest() noexcept override = default;

    void Listen(MControl& control) {
        control.OnClick(MControl::Click::Left).Connect(this, &WidgetTest::HearClick);
        control.OnChange().Connect(this, &WidgetTest::HearChange);
    }

private:
    void HearClick(const MOnClickParams& params) { log += Text(params.control->GetName()) + ":click "; }
    void HearChange(const MOnNotifyParams& params) {
        log += Text(static_cast<MControl*>(params.sender)->GetName()) + ":change ";
    }
};
