#include "ui/style/images/TexturedImage.h"

#include "foundation/base/MGuard.h"
#include "foundation/xml/MXMLItem.h"
#include "streams/resources/MResourceLibrary.h"
#include "ui/drawing/MBitmapFill.h"
#include "ui/image/files/MPictureReader.h"
#include "ui/style/images/MComposite.h"

#include <algorithm>

namespace {

/// No side of a picture becomes larger.
constexpr int32_t LongestSide = 4096;

int32_t GetFill(const MXMLItem& item, const char* attribute) {
    return std::clamp(item.GetInt32Attribute(attribute, 0), 0, static_cast<int32_t>(MDrawer::PartKept));
}

int32_t GetLength(const MXMLItem& item, const char* attribute) {
    return std::clamp(item.GetInt32Attribute(attribute, 0), 0, LongestSide);
}

}  // namespace

MBitmap MLoadPicture(const MResourceLibrary& resources, const MString& id) {
    MBitmap bitmap;
    if (id.IsEmpty() || !resources.HasResource(id)) return bitmap;
    MGuard("Load style image", [&] {
        MStream& stream = resources.GetResource(id).Open();
        uint8_t first = 0;
        (void)stream.Read(&first, 1);
        MReadPicture(first, resources.GetResource(id).Open(), bitmap);
    });
    return bitmap;
}

void TexturedImage::Load(MXMLItem& item) {
    id = item.GetAttribute("id", MString());
    minimalSize = {GetLength(item, "minw"), GetLength(item, "minh")};
    corner = {GetLength(item, "hcorner"), GetLength(item, "vcorner")};
    verticalFill = GetFill(item, "vfill");
    horizontalFill = GetFill(item, "hfill");
    fill = GetFill(item, "fill");
    transfer.Load(item);
    keepsLightness = item.GetInt32Attribute("inversion", 1) == 0;
}

MBitmap TexturedImage::Make(const MImageContext& context) const {
    MBitmap bitmap = MLoadPicture(context.resources, id);
    if (bitmap.IsEmpty()) return bitmap;
    const bool isInverted = context.colors.IsInverted() && !keepsLightness;
    if (isInverted || !transfer.IsNone())
        bitmap.ChangeColors([&](MColor color) {
            const MColor changed = transfer.Apply(color, context.colors.GetMainColors());
            return isInverted ? changed.WithLightnessOf(changed.Inverted()) : changed;
        });
    const MPoint size = context.scale.Get({bitmap.GetWidth(), bitmap.GetHeight()});
    return MResample(bitmap, {std::clamp(size.x, 1, LongestSide), std::clamp(size.y, 1, LongestSide)});
}

void TexturedImage::Paint(MDrawer& drawer, const MRect& rect, const MBitmap& bitmap, MStyleScale scale,
                          uint8_t alpha, MDrawMode mode) const {
    const bool isTiledAcross = horizontalFill == static_cast<int32_t>(MBitmapFill::Pattern);
    const bool isTiledDown = verticalFill == static_cast<int32_t>(MBitmapFill::Pattern);
    const MBitmapFill edges = isTiledAcross ? isTiledDown ? MBitmapFill::Pattern : MBitmapFill::VPattern
                              : isTiledDown ? MBitmapFill::HPattern
                                            : MBitmapFill::Stretch;
    const MRect source = MRect::FromSize(0, 0, bitmap.GetWidth(), bitmap.GetHeight());
    drawer.PaintCornered(rect, bitmap, source, scale.Get(corner), static_cast<int32_t>(edges), fill, alpha,
                         mode);
}
