#include "ui/opengl/MOpenGLMasks.h"

#include "ui/image/MAlphaMask.h"
#include "ui/opengl/MOpenGLColors.h"
#include "ui/opengl/MOpenGLDevice.h"

#include <algorithm>
#include <vector>

namespace {

constexpr int32_t WantedSize = 1024;

/// What a mask remembers of its place.
struct Place final : public MObject {
    std::shared_ptr<MOpenGLNames> owner;
    uint32_t generation = 0;
    uint32_t mark = 0;
    MPoint point;
};

}  // namespace

uint32_t MOpenGLMasks::GetTexture() {
    if (texture != 0) return texture;
    size = std::min(WantedSize, device.GetTextureLimit());
    texture = device.CreateTexture(MGL::ALPHA8, {size, size});
    Clear();
    return texture;
}

void MOpenGLMasks::Clear() {
    ++generation;
    constexpr uint8_t Whole = 255;
    Upload({}, {1, 1}, &Whole);
    next = {1, 0};
    shelfHeight = 1;
}

std::optional<MPoint> MOpenGLMasks::Find(const MAlphaMask& mask) {
    const auto* const known = dynamic_cast<const Place*>(mask.GetTexture());
    if (known && known->owner == device.GetNames() && known->generation == generation &&
        known->mark == mask.GetModificationMark())
        return known->point;
    const MPoint wanted{mask.GetWidth(), mask.GetHeight()};
    const std::optional<MPoint> point = Reserve(wanted);
    if (!point) return point;
    std::vector<uint8_t> shares(mask.GetBytes(), mask.GetBytes() + wanted.x * wanted.y);
    std::ranges::transform(shares, shares.begin(), MOpenGLColors::GetMaskAlpha);
    Upload(*point, wanted, shares.data());
    auto place = std::make_unique<Place>();
    place->owner = device.GetNames();
    place->generation = generation;
    place->mark = mask.GetModificationMark();
    place->point = *point;
    mask.SetTexture(std::move(place));
    return point;
}

std::optional<MPoint> MOpenGLMasks::Reserve(MPoint wanted) {
    if (next.x + wanted.x > size) {
        next = {0, next.y + shelfHeight};
        shelfHeight = 0;
    }
    if (wanted.x > size || next.y + wanted.y > size) return std::nullopt;
    const MPoint point = next;
    next.x += wanted.x;
    shelfHeight = std::max(shelfHeight, wanted.y);
    return point;
}

void MOpenGLMasks::Upload(MPoint place, MPoint part, const uint8_t* bytes) const {
    device.gl.BindTexture(MGL::TEXTURE_2D, texture);
    device.gl.TexSubImage2D(MGL::TEXTURE_2D, 0, place.x, place.y, part.x, part.y, MGL::ALPHA,
                            MGL::UNSIGNED_BYTE, bytes);
}
