#pragma once

#include "ui/opengl/MOpenGLBatch.h"
#include "ui/opengl/MOpenGLMasks.h"
#include "ui/opengl/MOpenGLSystem.h"

#include <functional>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

class MDrawerOpenGL;

/// The names of textures that are not used any more. Pictures may end on any thread, and after the device.
class MOpenGLNames final {
public:
    void GiveBack(uint32_t name) {
        const std::lock_guard guard(lock);
        unused.push_back(name);
    }
    [[nodiscard]] std::vector<uint32_t> Take() {
        const std::lock_guard guard(lock);
        return std::exchange(unused, {});
    }

private:
    std::mutex lock;
    std::vector<uint32_t> unused;
};

/// What all windows share that are painted by OpenGL: the system, which is opened for the first of them,
/// their textures, and the functions and limits that were found when the first context was current.
///
/// Belongs to the thread of the user interface.
class MOpenGLDevice final {
public:
    using Opener = std::function<std::unique_ptr<MOpenGLSystem>(const MNativeWindow&)>;

    explicit MOpenGLDevice(Opener open = &MOpenGLSystem::Open) : open(std::move(open)) {}
    MOpenGLDevice(const MOpenGLDevice&) = delete;
    MOpenGLDevice& operator=(const MOpenGLDevice&) = delete;

    /// Raises what `MOpenGLSystem` raises.
    [[nodiscard]] std::unique_ptr<MOpenGLContext> CreateContext(const MNativeWindow& window);
    /// Prepares a context that is current for the first time. Raises what `MOpenGLFunctions::Load` raises.
    void PrepareContext();
    /// At the beginning of a paint: textures that nothing shows any more go.
    void DeleteUnusedTextures();

    /// The largest width and height of a texture, and whether they may be other than powers of two.
    [[nodiscard]] int32_t GetTextureLimit() const { return textureLimit; }
    [[nodiscard]] bool HasAnyTextureSize() const { return textureLimit > 2048; }
    /// Makes a texture without content. Raises as `CheckTexture`.
    [[nodiscard]] uint32_t CreateTexture(int32_t format, MPoint size);
    /// Raises "Error loading OpenGL texture: {0}" (0) if OpenGL reports an error.
    void CheckTexture() const;
    [[nodiscard]] const std::shared_ptr<MOpenGLNames>& GetNames() const { return names; }

    MOpenGLFunctions gl;
    MOpenGLBatch batch{gl};
    MOpenGLMasks masks{*this};
    /// Whose paints have begun, each within the one before; the context of the last one is current.
    std::vector<MDrawerOpenGL*> paints;

private:
    const Opener open;
    std::unique_ptr<MOpenGLSystem> system;
    bool isLoaded = false;
    int32_t textureLimit = 0;
    const std::shared_ptr<MOpenGLNames> names = std::make_shared<MOpenGLNames>();
};
