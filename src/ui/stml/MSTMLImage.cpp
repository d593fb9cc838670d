#include "ui/stml/MSTMLImage.h"

#include "ui/control/kinds/MStdBitmap.h"
#include "ui/control/kinds/MStdIcon.h"
#include "ui/image/MNames.h"
#include "ui/stml/MSTMLAttributes.h"

#include <limits>

MSTMLImage::MSTMLImage(const MSTMLAttributes& attributes) {
    Read(attributes);
    if (const MString* const icon = attributes.Find("icon")) {
        source = Source::Icon;
        index = MFindName(MStdIconNames, *icon);
    } else if (const MString* const bitmap = attributes.Find("bitmap")) {
        source = Source::Bitmap;
        index = MFindName(MStdBitmapNames, *bitmap);
    } else {
        const char* const name = attributes.Has("id") ? "id" : "number";
        index = attributes.GetInteger(name, -1, -1, std::numeric_limits<int32_t>::max());
    }
}

MSTMLImage* MSTMLImage::Clone() const {
    return new MSTMLImage(*this);
}

MPoint MSTMLImage::GetNaturalSize(MSTMLContext& context) {
    const MBitmap* const bitmap = FindBitmap(context);
    return bitmap ? MPoint{bitmap->GetWidth(), bitmap->GetHeight()} : MPoint();
}

void MSTMLImage::PaintObject(MSTMLContext& context, const MRect& rect, bool isInverted) {
    const MBitmap* const bitmap = FindBitmap(context);
    if (!bitmap || bitmap->IsEmpty()) return;
    const MRect place = GetAligned(rect, {bitmap->GetWidth(), bitmap->GetHeight()});
    MColor color;
    (void)context.GetFont({}, isInverted, color);
    if (source == Source::Icon)
        context.drawer.DrawIcon(index, place.GetTopLeft(), color);
    else
        context.drawer.BitBltWhole(*bitmap, place.GetTopLeft(), color.alpha, MDrawMode::Overlay);
}

const MBitmap* MSTMLImage::FindBitmap(MSTMLContext& context) const {
    if (index < 0) return nullptr;
    switch (source) {
    case Source::Image: return index < context.images.GetCount() ? &context.images[index] : nullptr;
    case Source::Icon: return context.drawer.GetStdIcon(index);
    case Source::Bitmap: return context.drawer.GetStdBitmap(index);
    }
    return nullptr;
}
