#pragma once

#include "ui/widgets/edits/MEdit.h"
#include "ui/widgets/scrolling/MScrollBar.h"

/// An edit of several lines with scroll bars, which are there as long as they are needed. Lines wrap unless it is
/// told otherwise.
class MMultiLineEdit : public MEdit {
public:
    explicit MMultiLineEdit(MControl* parent = nullptr, const MString& name = MString());

    void AdjustRectangles(MRect& newWindowRect, MRect& newClientRect) override;

protected:
    /// As high as whole rows are.
    [[nodiscard]] MRect GetTextRectangle() override;
    void OnViewChanged() override;

private:
    struct Needs {
        bool vertical = false;
        bool horizontal = false;
        friend bool operator==(const Needs&, const Needs&) = default;
    };

    /// Which bars a text needs that has a rectangle with its bars.
    [[nodiscard]] Needs GetNeeds(const MRect& rect);
    void ShowBars();
    void OnBarMoved(const MOnNotifyParams& params);

    MScrollBar vertical{this, "VScrollBar", true};
    MScrollBar horizontal{this, "HScrollBar", false};
    MRect barsRect;  ///< what text and bars share
    Needs shown;
};
