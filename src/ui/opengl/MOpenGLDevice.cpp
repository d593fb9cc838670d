#include "ui/opengl/MOpenGLDevice.h"

#include "foundation/base/MRaise.h"

namespace {

/// OpenGL keeps an error for each of its parts at most.
constexpr int32_t MostErrors = 16;

}  // namespace

std::unique_ptr<MOpenGLContext> MOpenGLDevice::CreateContext(const MNativeWindow& window) {
    if (!system) system = open(window);
    return system->CreateContext(window);
}

void MOpenGLDevice::PrepareContext() {
    if (!isLoaded) gl.Load(*system);
    isLoaded = true;
    gl.GetIntegerv(MGL::MAX_TEXTURE_SIZE, &textureLimit);
    batch.PrepareContext();
}

void MOpenGLDevice::DeleteUnusedTextures() {
    const std::vector<uint32_t> unused = names->Take();
    if (!unused.empty()) gl.DeleteTextures(static_cast<int32_t>(unused.size()), unused.data());
}

uint32_t MOpenGLDevice::CreateTexture(int32_t format, MPoint size) {
    // What went wrong before is not this texture's fault.
    for (int32_t i = 0; i < MostErrors && gl.GetError() != MGL::NO_ERROR; ++i) {}
    uint32_t name = 0;
    gl.GenTextures(1, &name);
    gl.BindTexture(MGL::TEXTURE_2D, name);
    gl.TexParameteri(MGL::TEXTURE_2D, MGL::TEXTURE_MIN_FILTER, MGL::NEAREST);
    gl.TexParameteri(MGL::TEXTURE_2D, MGL::TEXTURE_MAG_FILTER, MGL::NEAREST);
    gl.TexImage2D(MGL::TEXTURE_2D, 0, format, size.x, size.y, 0, MGL::BGRA, MGL::UNSIGNED_BYTE, nullptr);
    try {
        CheckTexture();
    } catch (...) {
        gl.DeleteTextures(1, &name);
        throw;
    }
    return name;
}

void MOpenGLDevice::CheckTexture() const {
    const uint32_t error = gl.GetError();
    if (error != MGL::NO_ERROR)
        MRaise(MExceptionGeneral, "Error loading OpenGL texture: {0}", static_cast<int32_t>(error));
}
