#pragma once

#include "ui/drawing/MGradient.h"
#include "ui/widgets/content/MControlContent.h"

/// A surface with a slow gradient that shows a picture or a title: what stands above a wizard's pages or
/// around the text of a progress window. May hold controls.
class MPanelGradient : public MControlContent {
public:
    explicit MPanelGradient(MControl* parent = nullptr, const MString& name = MString());

    void PaintContent(MDrawer& drawer) override;

    MGradientDirection direction = MGradientDirection::Vertical;

protected:
    /// A picture goes to the edges, a text does not.
    [[nodiscard]] MPoint GetContentBorder() override;
};

/// The same on black, whatever the style's colours are; text on it is in the lighter ones.
class MPanelGradientBlack : public MPanelGradient {
public:
    using MPanelGradient::MPanelGradient;

    [[nodiscard]] MColor GetBackgroundColor() override { return {}; }
    void PaintContent(MDrawer& drawer) override;
};
