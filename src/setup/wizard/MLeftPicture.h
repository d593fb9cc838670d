#pragma once

#include "setup/wizard/MScaledPicture.h"
#include "ui/widgets/content/MStatic.h"

/// The picture left of the pages: in its own size, unless that is too wide, from the top down and to the
/// edges. Where the window is higher, the colour of its lowest row goes on. As wide as the picture; its
/// height makes no window higher.
class MLeftPicture final : public MStatic {
public:
    MLeftPicture(MControl* parent, const MScaledPicture& picture);

    void AdjustRectangles(MRect& newWindowRect, MRect& newClientRect) override {
        newClientRect = newWindowRect;
    }
    void GetMinimalContentSize(int32_t& x, int32_t& y) override;
    void PaintContent(MDrawer& drawer) override;

protected:
    [[nodiscard]] MPoint GetContentBorder() override { return {}; }

private:
    MContentScaledPicture* shown;  ///< the content
};
