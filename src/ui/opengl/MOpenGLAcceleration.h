#pragma once

#include "foundation/text/MString.h"
#include "ui/opengl/MDrawerOpenGL.h"
#include "ui/window/MBackBuffer.h"
#include "ui/window/MWindowAcceleration.h"

#include <functional>
#include <memory>

/// Paints a window by OpenGL, and in memory once OpenGL fails.
class MOpenGLPainter final : public MWindowPainter {
public:
    explicit MOpenGLPainter(std::shared_ptr<MOpenGLDevice> device) : drawer(std::move(device)) {}

    /// Raises as `MDrawerOpenGL::Initialize`.
    void Initialize(const MNativeWindow& window, MGPUMode mode) { drawer.Initialize(window, mode); }

    [[nodiscard]] bool HasPicture(MPoint size) const override {
        return memory ? memory->HasPicture(size) : drawer.HasFrame(size);
    }
    [[nodiscard]] MDrawer& GetDrawer() override {
        return memory ? memory->GetDrawer() : static_cast<MDrawer&>(drawer);
    }
    [[nodiscard]] const MBitmap* GetBitmap() const override { return memory ? memory->GetBitmap() : nullptr; }
    [[nodiscard]] bool TakePicture(MControl& root, MBitmap& bitmap) override;
    void OnWindowDestroyed() override { drawer.Close(); }
    [[nodiscard]] bool BeginPaint(MPoint size) override;
    void EndPaint() override;

private:
    MDrawerOpenGL drawer;
    std::unique_ptr<MBackBuffer> memory;  ///< in place of OpenGL, once that has failed
    MBitmap* wantedPicture = nullptr;     ///< what `TakePicture` fills during a paint
};

/// Has windows painted by OpenGL, as the user wants. When that cannot be had for a window, it and all that
/// follow are painted in memory.
class MOpenGLAcceleration final : public MWindowAcceleration {
public:
    /// `onFailure` is called with a text for the user, while the window is being made.
    explicit MOpenGLAcceleration(MGPUMode mode, std::function<void(const MString&)> onFailure = nullptr,
                                 std::shared_ptr<MOpenGLDevice> device = std::make_shared<MOpenGLDevice>());

    /// Off once it has failed.
    [[nodiscard]] MGPUMode GetMode() const { return mode; }
    [[nodiscard]] std::shared_ptr<MWindowPainter> CreatePainter(const MNativeWindow& window) override;

private:
    MGPUMode mode;
    const std::function<void(const MString&)> onFailure;
    const std::shared_ptr<MOpenGLDevice> device;
};
