#pragma once

#include "foundation/base/MObject.h"
#include "ui/window/MWindowAcceleration.h"

#include <memory>

/// The OpenGL context of a window.
class MOpenGLContext : public MObject {
public:
    /// Lets OpenGL paint into the window from now on. False if that cannot be.
    [[nodiscard]] virtual bool MakeCurrent() = 0;
    virtual void Release() = 0;
    /// Shows what has been painted.
    virtual void Swap() = 0;
};

/// The OpenGL of the machine, and what there is once for all windows: the library, a pixel format and a
/// context with which all others share their textures.
class MOpenGLSystem : public MObject {
public:
    /// Opens the platform's; `window` is the first one that wants it. Raises (0), each with the system's
    /// words: "Error opening OpenGL library. ", "Error creating global device context. ", "Error retrieving
    /// OpenGL pixel format. ", "Error initializing global device context. ", "Error creating global OpenGL
    /// context. ".
    [[nodiscard]] static std::unique_ptr<MOpenGLSystem> Open(const MNativeWindow& window);

    /// The context ends before the system does. Raises (0) "Error initializing OpenGL pixel format. ", "Error
    /// creating OpenGL context. " or "Error joining OpenGL context to global. ", each with the system's
    /// words.
    [[nodiscard]] virtual std::unique_ptr<MOpenGLContext> CreateContext(const MNativeWindow& window) = 0;
    /// The address of a function by its whole name, while a context is current; null if there is none.
    [[nodiscard]] virtual void* FindFunction(const char* name) = 0;
};
