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

MBitmap::MBitmap(const MBitmap& other) : MBaseBitmap(other) {
    TakePixels(other);
}

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

void MBitmap::CreateOpaque(int32_t newWidth, int32_t newHeight) {
    CreateUnfilled(newWidth, newHeight);
    std::fill_n(EditPixels(), CountPixels(), MColor());
    opaque = true;
}

void MBitmap::CreateSurface(int32_t newWidth, int32_t newHeight) {
    Clear();
    if (CheckSize(newWidth, newHeight, sizeof(MColor), 0))
        sharedMemory = MSysBitmap::TryToCreate(newWidth, newHeight);
    if (!sharedMemory) return CreateOpaque(newWidth, newHeight);
    sharedPixels = sharedMemory->GetPixels();
    width = newWidth;
    height = newHeight;
    std::fill_n(sharedPixels, CountPixels(), MColor());
    opaque = true;
}

void MBitmap::CreatePaletted(int32_t newWidth, int32_t newHeight) {
    CreateBlock(newWidth, newHeight, 1, PaletteSize);
    if (IsEmpty()) return;
    std::memset(block.EditBlock(), 0, static_cast<size_t>(block.GetSize()));
    std::fill_n(EditPalette(), PaletteCount, MColor());
    paletted = true;
}

bool MBitmap::CheckSize(int32_t newWidth, int32_t newHeight, int32_t pixelSize, int32_t headSize) {
    if (newWidth < 1 || newHeight < 1) return false;
    const int64_t room = std::numeric_limits<int32_t>::max() - headSize;
    if (int64_t{newWidth} * newHeight > room / pixelSize) MRaise(MExceptionGeneral, "Out of memory.");
    return true;
}

void MBitmap::CreateBlock(int32_t newWidth, int32_t newHeight, int32_t pixelSize, int32_t headSize) {
    MarkModified();
    TakePixels(MBitmap());
    width = height = 0;
    if (!CheckSize(newWidth, newHeight, pixelSize, headSize)) return;
    block = MBuffer(newWidth * newHeight * pixelSize + headSize);
    width = newWidth;
    height = newHeight;
}

void MBitmap::Assign(const MBitmap& other) {
    if (this == &other) return;
    MBaseBitmap::operator=(other);
    TakePixels(other);
}

void MBitmap::TakePixels(const MBitmap& other) {
    DropSystemBitmaps();
    sharedPixels = nullptr;
    sharedMemory.reset();
    paletted = other.paletted;
    opaque = false;
    block = other.block;
    if (!other.sharedPixels) return;
    block = MBuffer(static_cast<int32_t>(other.CountPixels() * int64_t{sizeof(MColor)}));
    std::memcpy(block.EditBlock(), other.sharedPixels, static_cast<size_t>(block.GetSize()));
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
    if (sharedMemory) return *sharedMemory;
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
    MarkModified();
    return sharedPixels ? sharedPixels : static_cast<MColor*>(block.EditBlock());
}

uint8_t* MBitmap::EditIndices() {
    ReleaseSystemBitmap();
    MarkModified();
    return static_cast<uint8_t*>(block.EditBlock()) + PaletteSize;
}

MColor MBitmap::GetPixel(int32_t x, int32_t y) const {
    const int64_t index = int64_t{width} * y + x;
    const MColor* const colors = GetPixels();
    return colors[paletted ? GetIndices()[index] : index];
}
