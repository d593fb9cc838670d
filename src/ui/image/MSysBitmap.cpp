#include "ui/image/MSysBitmap.h"

#include "foundation/base/MException.h"
#include "ui/image/MBitmap.h"

#include <algorithm>
#include <utility>

namespace {

uint8_t MultiplyRounded(uint8_t value, uint8_t alpha) {
    return static_cast<uint8_t>((value * alpha + 127) / 255);
}

MColor Premultiplied(MColor color) {
    return {MultiplyRounded(color.blue, color.alpha), MultiplyRounded(color.green, color.alpha),
            MultiplyRounded(color.red, color.alpha), color.alpha};
}

}  // namespace

MSysBitmap::MSysBitmap(const MBitmap& bitmap, Form form)
    : MSysBitmap(std::max(bitmap.GetWidth(), 1), std::max(bitmap.GetHeight(), 1), form) {
    if (!CreateShared())
        MRaise(MExceptionGDI, form == Form::WithAlpha ? "Could not create system bitmap with alpha."
                                                      : "Could not create system bitmap with direct access.");
    Fill(bitmap);
}

std::unique_ptr<MSysBitmap> MSysBitmap::TryToCreate(int32_t width, int32_t height) {
    std::unique_ptr<MSysBitmap> created(new MSysBitmap(width, height, Form::Opaque));
    return created->CreateShared() ? std::move(created) : nullptr;
}

void MSysBitmap::Fill(const MBitmap& bitmap) {
    if (bitmap.IsEmpty()) {
        *pixels = MColor{0, 0, 0, 0};
        return;
    }
    const MBitmap direct = bitmap.ToDirect();
    const MColor* const first = direct.GetPixels();
    const MColor* const last = first + int64_t{width} * height;
    if (form == Form::WithAlpha)
        std::transform(first, last, pixels, Premultiplied);
    else
        std::copy(first, last, pixels);
}
