#include "ui/opengl/MOpenGLTexture.h"

#include "foundation/base/MGuard.h"
#include "foundation/base/MRaise.h"
#include "ui/image/MAlphaMask.h"
#include "ui/image/MBitmap.h"
#include "ui/opengl/MOpenGLColors.h"
#include "ui/opengl/MOpenGLDevice.h"

#include <algorithm>
#include <bit>

MOpenGLTexture::MOpenGLTexture(MOpenGLDevice& device, const MBitmap& bitmap, const MRect& source, Form form)
    : names(device.GetNames()), source(source) {
    Create(device, MGL::RGBA8);
    Update(device, bitmap, form);
}

MOpenGLTexture::MOpenGLTexture(MOpenGLDevice& device, const MAlphaMask& mask, const MRect& source, Form form)
    : names(device.GetNames()), source(source) {
    Create(device, MGL::ALPHA8);
    Update(device, mask, form);
}

MOpenGLTexture::~MOpenGLTexture() {
    names->GiveBack(name);
}

void MOpenGLTexture::Create(MOpenGLDevice& device, int32_t format) {
    size = {source.GetWidth(), source.GetHeight()};
    if (!device.HasAnyTextureSize()) {
        sizeClass = SizeClass::PowersOfTwo;
        for (int32_t* length : {&size.x, &size.y})
            *length = static_cast<int32_t>(std::bit_ceil(static_cast<uint32_t>(*length)));
    }
    name = device.CreateTexture(format, size);
}

void MOpenGLTexture::Upload(MOpenGLDevice& device, uint32_t format, const void* pixels) {
    const MOpenGLFunctions& gl = device.gl;
    valid = false;
    gl.BindTexture(MGL::TEXTURE_2D, name);
    gl.TexSubImage2D(MGL::TEXTURE_2D, 0, 0, 0, source.GetWidth(), source.GetHeight(), format,
                     MGL::UNSIGNED_BYTE, pixels);
    device.CheckTexture();
    valid = true;
}

void MOpenGLTexture::Update(MOpenGLDevice& device, const MBitmap& bitmap, Form form) {
    std::vector<MColor> pixels;
    for (int32_t y = source.top; y <= source.bottom; ++y) {
        const MColor* const row = bitmap.GetRow(y);
        pixels.insert(pixels.end(), row + source.left, row + source.right + 1);
    }
    for (MColor& pixel : pixels)
        pixel = form == Form::Blended ? MOpenGLColors::GetBlended(pixel)
                                      : pixel.WithAlpha(MOpenGLColors::GetMaskAlpha(pixel.alpha));
    Upload(device, MGL::BGRA, pixels.data());
}

void MOpenGLTexture::Update(MOpenGLDevice& device, const MAlphaMask& mask, Form) {
    std::vector<uint8_t> shares;
    for (int32_t y = source.top; y <= source.bottom; ++y) {
        const uint8_t* const row = mask.GetRow(y);
        shares.insert(shares.end(), row + source.left, row + source.right + 1);
    }
    std::ranges::transform(shares, shares.begin(), MOpenGLColors::GetMaskAlpha);
    Upload(device, MGL::ALPHA, shares.data());
}

const MOpenGLDescriptor* MOpenGLDescriptor::Get(MOpenGLDevice& device, const MBitmap& bitmap,
                                                MOpenGLTexture::Form form) {
    return GetOf(device, bitmap, form);
}

const MOpenGLDescriptor* MOpenGLDescriptor::Get(MOpenGLDevice& device, const MAlphaMask& mask) {
    return GetOf(device, mask, MOpenGLTexture::Form::Plain);
}

template <class Picture>
const MOpenGLDescriptor* MOpenGLDescriptor::GetOf(MOpenGLDevice& device, const Picture& picture,
                                                  MOpenGLTexture::Form form) {
    const MOpenGLDescriptor* found = nullptr;
    MGuard("MOpenGLTexture::Get", [&] {
        auto* descriptor = dynamic_cast<MOpenGLDescriptor*>(picture.GetTexture());
        // A picture may have been painted by another device before, or by a drawer of another kind.
        if (!descriptor || descriptor->names != device.GetNames())
            descriptor = CreateDescriptor(device, picture);
        if (!descriptor) return;
        const bool isLoaded = !descriptor->tiles.empty() && descriptor->form == form &&
                              descriptor->mark == picture.GetModificationMark();
        // Those that are loaded anew may be waiting to be drawn as they were.
        if (!isLoaded) device.batch.Flush();
        if (isLoaded ||
            MGuard("MOpenGLTexture::Get (create texture)", [&] { descriptor->Load(device, picture, form); }))
            found = descriptor;
        else
            picture.SetTexture(nullptr);
    });
    return found;
}

template <class Picture>
MOpenGLDescriptor* MOpenGLDescriptor::CreateDescriptor(MOpenGLDevice& device, const Picture& picture) {
    MOpenGLDescriptor* created = nullptr;
    MGuard("MOpenGLTexture::CreateDescriptor", [&] {
        auto descriptor = std::make_unique<MOpenGLDescriptor>(device.GetNames());
        created = descriptor.get();
        picture.SetTexture(std::move(descriptor));
    });
    return created;
}

template <class Picture>
void MOpenGLDescriptor::Load(MOpenGLDevice& device, const Picture& picture, MOpenGLTexture::Form newForm) {
    const MPoint newSize{picture.GetWidth(), picture.GetHeight()};
    mark = picture.GetModificationMark();
    form = newForm;
    if (!tiles.empty() && size == newSize) {
        for (const auto& tile : tiles) tile->Update(device, picture, form);
        return;
    }
    tiles.clear();
    size = newSize;
    tileSize = device.GetTextureLimit();
    columns = (size.x + tileSize - 1) / tileSize;
    for (int32_t y = 0; y < size.y; y += tileSize)
        for (int32_t x = 0; x < size.x; x += tileSize)
            tiles.push_back(std::make_unique<MOpenGLTexture>(
                device, picture,
                MRect{x, y, std::min(x + tileSize, size.x) - 1, std::min(y + tileSize, size.y) - 1}, form));
}
