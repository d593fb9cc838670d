#include "ui/opengl/MOpenGLAcceleration.h"

#include "foundation/base/MGuard.h"
#include "foundation/text/MStringFormatter.h"

#include <utility>

bool MOpenGLPainter::BeginPaint(MPoint size) {
    if (!memory) {
        const bool isKept = drawer.HasFrame(size);
        if (MGuard("MOpenGLPainter::BeginPaint", [&] { drawer.BeginPaint(size); })) return isKept;
        drawer.Close();
        memory = std::make_unique<MBackBuffer>();
    }
    return memory->BeginPaint(size);
}

void MOpenGLPainter::EndPaint() {
    if (memory) return;
    if (wantedPicture) drawer.GetScreenShot(*std::exchange(wantedPicture, nullptr));
    drawer.EndPaint();
}

bool MOpenGLPainter::TakePicture(MControl& root, MBitmap& bitmap) {
    if (memory) return memory->TakePicture(root, bitmap);
    wantedPicture = &bitmap;
    const MPoint size = root.GetShownSize();
    (void)PaintWindow(root, MRect::FromSize(0, 0, size.x, size.y));
    if (memory) {
        // OpenGL has failed meanwhile; the platform has yet to show what was painted in its place.
        wantedPicture = nullptr;
        root.Invalidate();
        return memory->TakePicture(root, bitmap);
    }
    return std::exchange(wantedPicture, nullptr) == nullptr;
}

MOpenGLAcceleration::MOpenGLAcceleration(MGPUMode mode, std::function<void(const MString&)> onFailure,
                                         std::shared_ptr<MOpenGLDevice> device)
    : mode(mode), onFailure(std::move(onFailure)), device(std::move(device)) {}

std::shared_ptr<MWindowPainter> MOpenGLAcceleration::CreatePainter(const MNativeWindow& window) {
    if (mode == MGPUMode::Off) return nullptr;
    try {
        auto painter = std::make_shared<MOpenGLPainter>(device);
        painter->Initialize(window, mode);
        return painter;
    } catch (const MException& failure) {
        mode = MGPUMode::Off;
        const MString text = MTranslate(
            "Sorry, your system is out of GPU resources. The software will switch to CPU emulated mode. "
            "Please consider buying a modern graphics card. If this occurs commonly, use software settings "
            "to disable GPU acceleration permanently.\n\nInformation: ");
        if (onFailure)
            MGuard("MOpenGLAcceleration::CreatePainter", [&] { onFailure(text + failure.GetMessage()); });
    }
    return nullptr;
}
