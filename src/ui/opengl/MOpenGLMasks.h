#pragma once

#include "ui/geometry/MRect.h"

#include <cstdint>
#include <optional>

class MAlphaMask;
class MOpenGLDevice;

/// One texture with all the small masks that are painted, glyphs above all, and a spot that covers all: what
/// text, icons and shapes consist of is drawn without a change of texture.
///
/// A mask that was put in is found again until it changes, or until the texture is full and begins anew.
class MOpenGLMasks final {
public:
    explicit MOpenGLMasks(MOpenGLDevice& device) : device(device) {}
    MOpenGLMasks(const MOpenGLMasks&) = delete;
    MOpenGLMasks& operator=(const MOpenGLMasks&) = delete;

    /// Masks that are larger in either direction are not taken.
    static constexpr int32_t LargestMask = 128;

    /// Made on first use. Raises as `MOpenGLDevice::CreateTexture`.
    [[nodiscard]] uint32_t GetTexture();
    /// Width and height of the texture, in texels.
    [[nodiscard]] int32_t GetSize() const { return size; }
    /// Where in the texture a mask begins; nothing if there is no room left. The mask is not empty.
    [[nodiscard]] std::optional<MPoint> Find(const MAlphaMask& mask);
    /// Forgets all masks. What has been drawn with them has to have reached OpenGL.
    void Clear();
    /// The middle of the texel that covers all, in texels.
    static constexpr float WholeSpot = 0.5F;

private:
    [[nodiscard]] std::optional<MPoint> Reserve(MPoint wanted);
    void Upload(MPoint place, MPoint part, const uint8_t* bytes) const;

    MOpenGLDevice& device;
    uint32_t texture = 0;
    int32_t size = 0;
    uint32_t generation = 0;  ///< another one after each beginning
    MPoint next;              ///< where the next mask can go
    int32_t shelfHeight = 0;  ///< of the masks side by side from which `next` goes on
};
