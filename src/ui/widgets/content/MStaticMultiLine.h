#pragma once

#include "ui/widgets/content/MStatic.h"

/// Rich text that wraps at the width of the control, which is as high as that needs. The caption is the
/// text.
class MStaticMultiLine : public MStatic {
public:
    explicit MStaticMultiLine(MControl* parent = nullptr, const MString& name = MString());

    /// With mark-up (`MSTMLParser`).
    void SetText(const MString& text) override;
    /// For images and default flags; after changes of those call `SetText`.
    [[nodiscard]] MSTML& GetDocument() { return text.GetDocument(); }

    [[nodiscard]] MContent* GetContent() override { return &text; }
    [[nodiscard]] MFlexibility GetFlexibility() override { return MFlexibleBoth; }

private:
    MContentSTML text;
};

/// The line at the top of a page that says what it is about.
class MStaticHeader : public MStaticMultiLine {
public:
    explicit MStaticHeader(MControl* parent = nullptr, const MString& name = MString());
};

/// A text on a panel of its own, which tells what else is good to know.
class MStaticInfoPanel : public MStaticMultiLine {
public:
    explicit MStaticInfoPanel(MControl* parent = nullptr, const MString& name = MString());
};
