#pragma once

#include "ui/geometry/MRect.h"
#include "ui/image/MColor.h"
#include "ui/image/MColorOp.h"
#include "ui/opengl/MOpenGLFunctions.h"

#include <vector>

/// A part of a texture, by its outer edges: 0 to 1, or beyond where the texture repeats itself.
struct MTexturePart {
    float left;
    float top;
    float right;
    float bottom;
};

/// Rectangles of one texture, one after the other, until another texture or way of blending is wanted: what a
/// paint draws reaches OpenGL in few calls.
class MOpenGLBatch final {
public:
    explicit MOpenGLBatch(const MOpenGLFunctions& gl) : gl(gl) {}

    /// Brings a context that is current for the first time into the state that the batch draws in.
    void PrepareContext() const;

    /// What follows is combined by a mode, or as by Alphablend where OpenGL has nothing like it. What has
    /// been collected for another texture or mode is drawn.
    void Begin(uint32_t texture, MDrawMode mode);
    /// The colour of each pixel is that of the texture times `color`.
    void Add(const MRect& rect, const MTexturePart& part, MColor color);
    /// Draws all that has been collected.
    void Flush();

private:
    struct Vertex {
        float x, y;
        float u, v;
        uint8_t red, green, blue, alpha;
    };

    void SetMode(MDrawMode newMode) const;

    const MOpenGLFunctions& gl;
    uint32_t texture = 0;
    MDrawMode mode = MDrawMode::Alphablend;
    std::vector<Vertex> vertices;
};
