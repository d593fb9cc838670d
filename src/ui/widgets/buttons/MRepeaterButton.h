#pragma once

#include "ui/control/windows/MTimer.h"
#include "ui/widgets/buttons/MButton.h"

/// A button that clicks when it is pressed, and again and again as long as it is held.
class MRepeaterButton : public MButton, public MTimer {
public:
    using MButton::MButton;

    void OnMousePressed(MPoint point) override { Begin(point); }
    void OnMouseReleased(MPoint) override { StopTimer(); }
    void OnKeyPressed(MPoint point) override { Begin(point); }
    void OnKeyReleased(MPoint) override { StopTimer(); }
    void OnTimer() override;

private:
    static constexpr int32_t FirstDelay = 400;  ///< in milliseconds
    static constexpr int32_t NextDelay = 60;

    void Begin(MPoint point);

    MPoint clickPoint;
};
