#pragma once

#include "foundation/base/MObject.h"
#include "ui/drawing/MDrawer.h"

/// Something that fills a rectangle of a control: text, an icon, a picture, or a mixture of them.
class MContent : public MObject {
public:
    /// In pixels.
    [[nodiscard]] virtual MPoint GetSize(MDrawer& drawer) = 0;
    virtual void Paint(MDrawer& drawer, const MRect& rect, bool isInverted) = 0;
};
