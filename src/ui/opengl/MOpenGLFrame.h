#pragma once

#include "ui/geometry/MPoint.h"

#include <cstdint>

class MOpenGLDevice;

/// A texture that a window is painted on, so that what was painted before stays when it is shown. Belongs to
/// one context, which is current in all operations.
class MOpenGLFrame final {
public:
    explicit MOpenGLFrame(MOpenGLDevice& device) : device(device) {}
    MOpenGLFrame(const MOpenGLFrame&) = delete;
    MOpenGLFrame& operator=(const MOpenGLFrame&) = delete;

    /// Makes the frame buffer and tries it with a texture of some size; it has no picture yet. False if OpenGL refuses it.
    [[nodiscard]] bool Create(MPoint trialSize);
    [[nodiscard]] bool IsCreated() const { return buffer != 0; }
    /// Whether it has what was painted in a size.
    [[nodiscard]] bool Has(MPoint wanted) const { return IsCreated() && size == wanted; }
    /// Another size of what is painted. False if OpenGL refuses it.
    [[nodiscard]] bool Resize(MPoint newSize);
    void Drop();

    /// What is drawn goes there from now on, or with `Unbind` into the window.
    void Bind() const;
    void Unbind() const;
    /// Draws all of it over the window. The projection is that of window pixels.
    void DrawOver() const;

private:
    MOpenGLDevice& device;
    uint32_t buffer = 0;
    uint32_t texture = 0;
    MPoint size;         ///< of what is painted
    MPoint textureSize;  ///< that the texture has
};
