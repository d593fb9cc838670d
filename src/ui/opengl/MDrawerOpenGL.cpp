#include "ui/opengl/MDrawerOpenGL.h"

#include "foundation/base/MException.h"
#include "foundation/base/MGuard.h"
#include "ui/image/MAlphaMask.h"

#include <algorithm>
#include <utility>

namespace {

/// From this limit on windows are painted on textures.
constexpr int32_t LargeTextureLimit = 4096;

}  // namespace

MDrawerOpenGL::MDrawerOpenGL(std::shared_ptr<MOpenGLDevice> device)
    : MDrawerToPixels("MDrawerOpenGL"), device(std::move(device)), frame(*this->device) {}

MDrawerOpenGL::~MDrawerOpenGL() {
    Close();
}

void MDrawerOpenGL::Initialize(const MNativeWindow& window, MGPUMode mode) {
    try {
        context = device->CreateContext(window);
        if (!context->MakeCurrent()) MRaise(MExceptionGeneral, "Error creating OpenGL context. ");
        Start(mode);
        // Drivers look for the size of a window when they have shown it, and the one that it has now is not its
        // last.
        context->Swap();
        context->Release();
    } catch (const MException&) {
        context.reset();
        throw;
    } catch (...) {
        context.reset();
        MRaise(MExceptionGeneral, "Fatal GPU driver malfunction.");
    }
}

void MDrawerOpenGL::Start(MGPUMode mode) {
    device->PrepareContext();
    const bool isTried = device->GetTextureLimit() > LargeTextureLimit && device->gl.HasFrameBuffers() &&
                         mode != MGPUMode::WithoutFrameBuffer;
    // Any size shows whether it works; the window's own comes with its first paint.
    constexpr MPoint Trial{64, 64};
    if (!isTried || !frame.Create(Trial)) frame.Drop();
}

void MDrawerOpenGL::Close() {
    if (!device) return;
    if (Prepare()) device->batch.Flush();
    std::erase(device->paints, this);
    if (context) {
        // What belongs to the context alone goes with it, the frame's texture does not.
        if (frame.IsCreated() && context->MakeCurrent()) frame.Drop();
        context->Release();
    }
    context.reset();
    ContinuePaint();
    device.reset();
}

void MDrawerOpenGL::BeginPaint(MPoint newSize) {
    if (!context) MRaise(MExceptionGeneral, "Error creating OpenGL context. ");
    if (!device->paints.empty()) device->batch.Flush();
    if (!context->MakeCurrent()) {
        ContinuePaint();
        MRaise(MExceptionGeneral, "Error creating OpenGL context. ");
    }
    if (device->paints.empty()) device->DeleteUnusedTextures();
    device->paints.push_back(this);
    if (size != newSize) {
        size = newSize;
        clip = GetBounds();
    }
    // A window beyond the limit is painted without.
    const bool isTooLarge = std::max(size.x, size.y) > device->GetTextureLimit();
    if (frame.IsCreated() && !frame.Has(size) && (isTooLarge || !frame.Resize(size))) frame.Drop();
    if (frame.IsCreated()) frame.Bind();
    const MOpenGLFunctions& gl = device->gl;
    gl.Viewport(0, 0, size.x, size.y);
    gl.MatrixMode(MGL::PROJECTION);
    gl.LoadIdentity();
    gl.Ortho(0, size.x, size.y, 0, -1, 1);
    gl.MatrixMode(MGL::MODELVIEW);
    gl.LoadIdentity();
}

void MDrawerOpenGL::EndPaint() {
    if (!Prepare()) return;
    device->batch.Flush();
    if (frame.IsCreated()) {
        frame.Unbind();
        frame.DrawOver();
    }
    context->Swap();
    context->Release();
    device->paints.pop_back();
    ContinuePaint();
}

void MDrawerOpenGL::ContinuePaint() const {
    if (device->paints.empty()) return;
    const MDrawerOpenGL& before = *device->paints.back();
    if (before.context->MakeCurrent() && before.frame.IsCreated()) before.frame.Bind();
}

void MDrawerOpenGL::GetScreenShot(MBitmap& bitmap) {
    MGuard("MDrawerOpenGL::GetScreenShot", [&] {
        if (!Prepare()) return;
        device->batch.Flush();
        MBitmap picture;
        picture.CreateOpaque(size.x, size.y);
        MColor* const pixels = picture.EditPixels();
        device->gl.ReadPixels(0, 0, size.x, size.y, MGL::BGRA, MGL::UNSIGNED_BYTE, pixels);
        for (int32_t y = 0; y < size.y / 2; ++y) {
            MColor* const row = pixels + int64_t{size.x} * y;
            std::swap_ranges(row, row + size.x, pixels + int64_t{size.x} * (size.y - 1 - y));
        }
        picture.ChangeColors([](MColor color) { return color.WithAlpha(255); });
        bitmap = picture;
    });
}

void MDrawerOpenGL::Flush() {
    if (Prepare()) device->batch.Flush();
}
