#pragma once

#include "foundation/views/MProgressView.h"
#include "setup/wizard/MWindowPulse.h"
#include "ui/widgets/content/MStatic.h"
#include "ui/widgets/values/MProgressBar.h"

/// A line of text beside work in the thread of the windows, shown as often as the eye can follow. What does not
/// fit is left out in its middle.
class MProgressLine final : public MStatic, public MTextView {
public:
    MProgressLine(MControl* parent, const MString& name, MWindowPulse& pulse)
        : MStatic(parent, name), pulse(pulse) {
        Set(MControlFlag::IgnoreWidthInLayout);
    }

    void SetText(const MString& text) override {
        MStatic::SetText(text);
        pulse.Beat();
    }

private:
    MWindowPulse& pulse;
};

/// A bar beside such work, of which nothing is missed.
class MLiveProgressBar final : public MProgressBar {
public:
    MLiveProgressBar(MControl* parent, const MString& name, MWindowPulse& pulse)
        : MProgressBar(parent, name), pulse(pulse) {}

    void SetProgress(double maximum, double value) override {
        SetPercent(maximum > 0 ? value / maximum * 100 : 0);
        pulse.Beat();
    }

private:
    MWindowPulse& pulse;
};
