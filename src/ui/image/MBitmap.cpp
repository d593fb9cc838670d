#include "ui/image/MBitmap.h"

#include "foundation/base/MException.h"
#include "ui/image/MAlphaMask.h"
#include "ui/image/MSysBitmap.h"

#include <algorithm>
#include <cstring>
#include <limits>

MBitmap::MBitmap() = default;

MBitmap::MBitmap(int32_t width, int32_t height) {
    Create(width, height);
}

MBitmap::MBitmap(const MBitmap& other) : MBaseBitmap(other), paletted(other.paletted), block(other.block) {}

MBitmap& MBitmap::operator=(const MBitmap& other) {
    Assign(other);
    return *this;
}

MBitmap::~MBitmap() = default;

void MBitmap::Create(int32_t newWidth, int32_t newHeight) {
    CreateUnfilled(newWidth, newHeight);
    if (!IsEmpty()) std::memset(block.EditBlock(), 0, static_cast<size_t>(block.GetSize()));
}

void MBitmap::CreateUnfilled(int32_t newWidth, int32_t newHeight) {
    CreateBlock(newWidth, newHeight, sizeof(MColor), 0);
}

void MBitmap::CreatePaletted(int32_t newWidth, int32_t newHeight) {
    CreateBlock(newWidth, newHeight, 1, PaletteSize);
    if (IsEmpty()) return;
    std::memset(block.EditBlock(), 0, static_cast<size_t>(block.GetSize()));
    std::fill_n(EditPalette(), PaletteCount, MColor());
    paletted = true;
}

void MBitmap::CreateBlock(int32_t newWidth, int32_t newHeight, int32_t pixelSize, int32_t headSize) {
    DropSystemBitmaps();
    width = height = 0;
    paletted = false;
    block = MBuffer();
    if (newWidth < 1 || newHeight < 1) return;
    const int64_t room = std::numeric_limits<int32_t>::max() - headSize;
    if (int64_t{newWidth} * newHeight > room / pixelSize) MRaise(MExceptionGeneral, "Out of memory.");
    block = MBuffer(newWidth * newHeight * pixelSize + headSize);
    width = newWidth;
    height = newHeight;
}

void MBitmap::Assign(const MBitmap& other) {
    if (this == &other) return;
    DropSystemBitmaps();
    width = other.width;
    height = other.height;
    paletted = other.paletted;
    block = other.block;
}

void MBitmap::ToAlphaMask(MAlphaMask& mask) const {
    mask.CreateUnfilled(width, height);
    if (IsEmpty()) return;
    uint8_t* const target = mask.EditBytes();
    const int64_t count = CountPixels();
    if (paletted)
        std::memcpy(target, GetIndices(), static_cast<size_t>(count));
    else
        std::transform(GetPixels(), GetPixels() + count, target, [](MColor pixel) { return pixel.alpha; });
}

MBitmap MBitmap::ToDirect() const {
    if (!paletted) return *this;
    MBitmap direct;
    direct.CreateUnfilled(width, height);
    const MColor* const palette = GetPalette();
    std::transform(GetIndices(), GetIndices() + CountPixels(), direct.EditPixels(),
                   [palette](uint8_t index) { return palette[index]; });
    return direct;
}

MSysBitmap& MBitmap::CreateSystemBitmap() {
    if (!systemBitmap) systemBitmap = std::make_unique<MSysBitmap>(*this, MSysBitmap::Form::Opaque);
    return *systemBitmap;
}

MSysBitmap& MBitmap::CreateSystemBitmapWithAlpha() {
    if (!systemBitmapWithAlpha)
        systemBitmapWithAlpha = std::make_unique<MSysBitmap>(*this, MSysBitmap::Form::WithAlpha);
    return *systemBitmapWithAlpha;
}

void MBitmap::ReleaseSystemBitmap() {
    DropSystemBitmaps();
}

void MBitmap::DropSystemBitmaps() {
    systemBitmap.reset();
    systemBitmapWithAlpha.reset();
}

MColor* MBitmap::EditPixels() {
    ReleaseSystemBitmap();
    return static_cast<MColor*>(block.EditBlock());
}

uint8_t* MBitmap::EditIndices() {
    ReleaseSystemBitmap();
    return static_cast<uint8_t*>(block.EditBlock()) + PaletteSize;
}

MColor MBitmap::GetPixel(int32_t x, int32_t y) const {
    const int64_t index = int64_t{width} * y + x;
    const MColor* const colors = GetPixels();
    return colors[paletted ? GetIndices()[index] : index];
}
