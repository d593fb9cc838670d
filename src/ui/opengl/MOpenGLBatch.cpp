#include "ui/opengl/MOpenGLBatch.h"

namespace {

/// What becomes of a colour, after texture and vertex, before it is combined.
enum class Stage {
    Plain,
    TimesAlpha,  ///< its channels times its alpha
    Alpha,       ///< its alpha in all channels
};

/// d := s * source +- d * target, where s has gone through a stage.
struct Blending {
    uint32_t source;
    uint32_t target;
    uint32_t equation = MGL::FUNC_ADD;
    Stage stage = Stage::Plain;
};

constexpr Blending Alphablend = {MGL::SRC_ALPHA, MGL::ONE_MINUS_SRC_ALPHA};

/// The modes that OpenGL has something for, as the pixel operators have them where what is painted on is
/// opaque; Alphablend for the others.
Blending GetBlending(MDrawMode mode) {
    switch (mode) {
    case MDrawMode::Modulate:
        return {MGL::DST_COLOR, MGL::ONE_MINUS_SRC_ALPHA, MGL::FUNC_ADD, Stage::TimesAlpha};
    case MDrawMode::Copy: return {MGL::ONE, MGL::ZERO};
    case MDrawMode::Invert:
        return {MGL::ONE_MINUS_DST_COLOR, MGL::ONE_MINUS_SRC_ALPHA, MGL::FUNC_ADD, Stage::Alpha};
    case MDrawMode::Add: return {MGL::SRC_ALPHA, MGL::ONE};
    case MDrawMode::Subtract: return {MGL::SRC_ALPHA, MGL::ONE, MGL::FUNC_REVERSE_SUBTRACT};
    default: return Alphablend;
    }
}

/// So many are drawn at once, at most.
constexpr size_t MostVertices = 1 << 16;

}  // namespace

void MOpenGLBatch::PrepareContext() const {
    gl.Disable(MGL::DITHER);
    gl.Enable(MGL::BLEND);
    gl.PixelStorei(MGL::UNPACK_ALIGNMENT, 1);
    gl.PixelStorei(MGL::PACK_ALIGNMENT, 1);
    gl.EnableClientState(MGL::VERTEX_ARRAY);
    gl.EnableClientState(MGL::TEXTURE_COORD_ARRAY);
    gl.EnableClientState(MGL::COLOR_ARRAY);
    if (gl.HasTextureStages()) {
        // The second stage is switched on by some modes. Its colour comes out of the alpha of the first one,
        // and of its colour as well if it multiplies.
        gl.ActiveTexture(MGL::TEXTURE1);
        gl.TexEnvi(MGL::TEXTURE_ENV, MGL::TEXTURE_ENV_MODE, MGL::COMBINE);
        gl.TexEnvi(MGL::TEXTURE_ENV, MGL::SOURCE0_RGB, MGL::PREVIOUS);
        gl.TexEnvi(MGL::TEXTURE_ENV, MGL::OPERAND0_RGB, static_cast<int32_t>(MGL::SRC_ALPHA));
        gl.TexEnvi(MGL::TEXTURE_ENV, MGL::SOURCE1_RGB, MGL::PREVIOUS);
        gl.TexEnvi(MGL::TEXTURE_ENV, MGL::OPERAND1_RGB, MGL::SRC_COLOR);
        gl.TexEnvi(MGL::TEXTURE_ENV, MGL::COMBINE_ALPHA, MGL::REPLACE);
        gl.TexEnvi(MGL::TEXTURE_ENV, MGL::SOURCE0_ALPHA, MGL::PREVIOUS);
        gl.ActiveTexture(MGL::TEXTURE0);
    }
    gl.TexEnvi(MGL::TEXTURE_ENV, MGL::TEXTURE_ENV_MODE, MGL::MODULATE);
    gl.Enable(MGL::TEXTURE_2D);
}

void MOpenGLBatch::Begin(uint32_t newTexture, MDrawMode newMode) {
    if (texture != newTexture || mode != newMode || vertices.size() >= MostVertices) Flush();
    texture = newTexture;
    mode = newMode;
}

void MOpenGLBatch::Add(const MRect& rect, const MTexturePart& part, MColor color) {
    const auto left = static_cast<float>(rect.left);
    const auto top = static_cast<float>(rect.top);
    const auto right = static_cast<float>(rect.right + 1);
    const auto bottom = static_cast<float>(rect.bottom + 1);
    const auto add = [&](float x, float y, float u, float v) {
        vertices.push_back({x, y, u, v, color.red, color.green, color.blue, color.alpha});
    };
    add(left, top, part.left, part.top);
    add(right, top, part.right, part.top);
    add(right, bottom, part.right, part.bottom);
    add(left, bottom, part.left, part.bottom);
}

void MOpenGLBatch::SetMode(MDrawMode newMode) const {
    Blending blending = GetBlending(newMode);
    if ((blending.equation != MGL::FUNC_ADD && !gl.HasBlendEquation()) ||
        (blending.stage != Stage::Plain && !gl.HasTextureStages()))
        blending = Alphablend;
    if (gl.HasBlendEquation()) gl.BlendEquation(blending.equation);
    gl.BlendFunc(blending.source, blending.target);
    if (!gl.HasTextureStages()) return;
    gl.ActiveTexture(MGL::TEXTURE1);
    if (blending.stage == Stage::Plain) {
        gl.Disable(MGL::TEXTURE_2D);
    } else {
        gl.Enable(MGL::TEXTURE_2D);
        // A stage without a texture is none, whether or not it reads one.
        gl.BindTexture(MGL::TEXTURE_2D, texture);
        gl.TexEnvi(MGL::TEXTURE_ENV, MGL::COMBINE_RGB,
                   blending.stage == Stage::Alpha ? MGL::REPLACE : MGL::MODULATE);
    }
    gl.ActiveTexture(MGL::TEXTURE0);
}

void MOpenGLBatch::Flush() {
    if (vertices.empty()) return;
    SetMode(mode);
    gl.BindTexture(MGL::TEXTURE_2D, texture);
    const Vertex* const first = vertices.data();
    gl.VertexPointer(2, MGL::FLOAT, sizeof(Vertex), &first->x);
    gl.TexCoordPointer(2, MGL::FLOAT, sizeof(Vertex), &first->u);
    gl.ColorPointer(4, MGL::UNSIGNED_BYTE, sizeof(Vertex), &first->red);
    gl.DrawArrays(MGL::QUADS, 0, static_cast<int32_t>(vertices.size()));
    vertices.clear();
}
