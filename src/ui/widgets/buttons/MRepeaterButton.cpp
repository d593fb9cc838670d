#include "ui/widgets/buttons/MRepeaterButton.h"

void MRepeaterButton::Begin(MPoint point) {
    clickPoint = point;
    StartTimer(FirstDelay);
    OnClick(point);
}

void MRepeaterButton::OnTimer() {
    if (!IsPressed() || !IsEnabled()) return StopTimer();
    StartTimer(NextDelay);
    // As long as the mouse is beside the button, it waits.
    if (GetDrawState() & MDrawClicked) OnClick(clickPoint);
}
