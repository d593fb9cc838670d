#pragma once

#include "foundation/base/MObject.h"
#include "ui/drawing/MDrawer.h"
#include "ui/geometry/MAlignment.h"

/// How a control wants its content: fonts and colours by the style's numbers, the state of `MDrawState`.
struct MContentLook {
    int32_t font = 0;
    int32_t color = 0;
    uint8_t drawState = 0;
    bool isInverted = false;
    MAlignment alignment = MAlignCenter;  ///< of the content in its rectangle
};

/// Something that fills a rectangle of a control: text, an icon, a picture, or a mixture of them. What does not
/// fit is shortened or clipped. Contents can be shared by painting them one after the other.
class MContent : public MObject {
public:
    /// In pixels.
    [[nodiscard]] virtual MPoint GetSize(MDrawer& drawer, const MContentLook& look) = 0;
    /// Of what wraps: the height for a width, and the least width for a height; of anything else that of
    /// `GetSize`.
    [[nodiscard]] virtual int32_t GetHeightForWidth(MDrawer& drawer, const MContentLook& look, int32_t) {
        return GetSize(drawer, look).y;
    }
    [[nodiscard]] virtual int32_t GetWidthForHeight(MDrawer& drawer, const MContentLook& look, int32_t) {
        return GetSize(drawer, look).x;
    }
    virtual void Paint(MDrawer& drawer, const MRect& rect, const MContentLook& look) = 0;
};
