#pragma once

#include "foundation/views/MProgressView.h"
#include "setup/wizard/MWindowPulse.h"
#include "ui/widgets/content/MStatic.h"
#include "ui/widgets/values/MProgressBar.h"

/// A line of text beside work, shown as often as the eye can follow. What does not fit is left out in its middle.
class MProgressLine final : public MStatic, public MTextView {
public:
    /// The pulse is beside work in the thread of the windows.
    MProgressLine(MControl* parent, const MString& name, MWindowPulse* pulse = nullptr)
        : MStatic(parent, name), pulse(pulse) {
        Set(MControlFlag::IgnoreWidthInLayout);
        auto text = std::make_unique<MContentText>();
        text->isShortenedInside = true;
        content = text.get();
        SetContent(std::move(text));
    }

    void SetText(const MString& text) override {
        content->text = text;
        Invalidate();
        if (pulse) pulse->Beat();
    }
    [[nodiscard]] const MString& GetText() const { return content->text; }
    /// Of one line, whatever the text.
    void GetMinimalContentSize(int32_t& x, int32_t& y) override {
        MContentText letters("X");
        const MPoint needed = GetNeededSize(&letters);
        x = 0;
        y = needed.y;
    }

private:
    MContentText* content;
    MWindowPulse* pulse;
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
