#pragma once

#include "ui/opengl/MOpenGLConstants.h"

#include <cstdint>

class MOpenGLSystem;

/// The functions of OpenGL that are called, by their names without prefix, found by name at run time: a
/// program neither needs a library to start nor carries the hundreds of functions that it does not call.
struct MOpenGLFunctions {
#define FUNCTION(result, name, arguments) result(OPENGL_CALL* name) arguments = nullptr;
#define EXTENSION(result, name, arguments) FUNCTION(result, name, arguments)
#include "ui/opengl/MOpenGLFunctions.inc"
#undef FUNCTION
#undef EXTENSION

    /// Finds them all; a context has to be current. Functions of extensions that this OpenGL does not have
    /// are null. Raises "Error opening OpenGL library. " (0) with the name of another one that is missing.
    void Load(MOpenGLSystem& system);

    /// Whether colours can also be subtracted, textures combined in two stages, and textures be painted on.
    [[nodiscard]] bool HasBlendEquation() const {
        return BlendEquation != nullptr;
    }
    [[nodiscard]] bool HasTextureStages() const {
        return ActiveTexture != nullptr;
    }
    [[nodiscard]] bool HasFrameBuffers() const {
        return GenFramebuffers != nullptr;
    }
};
