#pragma once

#include "ui/stml/MSTMLObject.h"

/// A picture: one of the document's images, or an icon or a bitmap of the style. One that is missing takes no
/// room and paints nothing.
class MSTMLImage final : public MSTMLObject {
public:
    enum class Source : uint8_t { Image, Icon, Bitmap };

    /// The index counts from 0 in its source.
    MSTMLImage(Source source, int32_t index) : source(source), index(index) {}
    /// Takes "id" or "number", an index of the document's images; "icon", a name of `MStdIcon`; "bitmap", one
    /// of `MStdBitmap`.
    explicit MSTMLImage(const MSTMLAttributes& attributes);

    [[nodiscard]] MSTMLImage* Clone() const override;
    [[nodiscard]] MPoint GetNaturalSize(MSTMLContext& context) override;
    void PaintObject(MSTMLContext& context, const MRect& rect, bool isInverted) override;

private:
    [[nodiscard]] const MBitmap* FindBitmap(MSTMLContext& context) const;

    Source source = Source::Image;
    int32_t index = -1;
};
