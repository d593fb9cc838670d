#pragma once

#include "tests/ui/control/ControlFixture.h"
#include "ui/control/MContainers.h"

#include <optional>

/// A window whose widgets tell of their events in the log of the test, and answers of the test in place of
/// windows that ask.
class WidgetTest : public ControlTest, public MEventTarget, public MWindowDialogs {
protected:
    WidgetTest() {
        root.Set(MControlFlag::CloseOnEscape);
        windows.dialogs = this;
    }
    ~WidgetTest() noexcept override = default;

    /// A control somewhere on the window, of which the log tells. Names are numbers unless given.
    template <class Widget>
    Widget& Add(const MRect& rect, const char* name = "") {
        auto& widget = *new Widget(&root, name);
        Listen(Place(widget, rect));
        return widget;
    }
    void Listen(MControl& widget) {
        widget.OnClick(MControl::Click::Left).Connect(this, &WidgetTest::HearClick);
        widget.OnChange().Connect(this, &WidgetTest::HearChange);
        widget.OnChange(MControl::Change::Committed).Connect(this, &WidgetTest::HearCommit);
    }
    /// A point of a control on the screen: of its middle by default.
    static MPoint At(MControl& control, MPoint fromMiddle = {}) {
        return control.GetScreenPoint(MPoint{control.size.x / 2, control.size.y / 2} + fromMiddle);
    }
    void Press(MControl& control, MKeyModifiers button = MModifierLeftButton) {
        user.MoveMouse(At(control));
        user.PressButton(button);
    }

    bool AskYesNo(MControl&, const MString&) override { return true; }
    std::optional<MString> EditText(MControl&, const MString& caption, const MString& text,
                                    const MCharFilter::Interface&) override {
        asked = Text(caption) + ": " + Text(text);
        return answer;
    }
    void ShowInformation(MControl&, const MString& text) override { shown = Text(text); }
    void ShowDocument(MControl&, const MString&, const MString& text) override { shown = Text(text); }

    MWindow root;
    std::string asked;
    std::optional<MString> answer;
    std::string shown;

private:
    void HearClick(const MOnClickParams& params) { log += Text(params.control->GetName()) + ":click "; }
    void HearChange(const MOnNotifyParams& params) { Tell(params, ":change "); }
    void HearCommit(const MOnNotifyParams& params) { Tell(params, ":commit "); }
    void Tell(const MOnNotifyParams& params, const char* what) {
        log += Text(static_cast<MControl*>(params.sender)->GetName()) + what;
    }
};
