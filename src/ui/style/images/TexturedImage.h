#pragma once

#include "ui/drawing/MDrawer.h"
#include "ui/style/colors/MStyleColors.h"
#include "ui/style/images/MImageContext.h"

class MResourceLibrary;
class MXMLItem;

/// A picture of a file that fills a control by nine parts. Its corners are in pixels of 100 percent.
class TexturedImage {
public:
    /// Raises nothing.
    void Load(MXMLItem& item);

    [[nodiscard]] const MString& GetId() const { return id; }
    /// The picture in the colours and the size of a style; empty if the library has none of the name, or one
    /// that cannot be read. Pictures may be in PNG, JPEG or TGA format, by what they begin with.
    [[nodiscard]] MBitmap Make(const MImageContext& context) const;
    /// Paints what `Make` has made.
    void Paint(MDrawer& drawer, const MRect& rect, const MBitmap& bitmap, MStyleScale scale, uint8_t alpha,
               MDrawMode mode) const;
    [[nodiscard]] MPoint GetMinimalSize() const { return minimalSize; }

private:
    MString id;
    MPoint minimalSize;
    MPoint corner;
    int32_t verticalFill = 0;
    int32_t horizontalFill = 0;
    int32_t fill = 0;
    MColorTransfer transfer;
    bool keepsLightness = false;
};

/// The picture of an item; empty if there is none of the name, or one that cannot be read.
[[nodiscard]] MBitmap MLoadPicture(const MResourceLibrary& resources, const MString& id);
