#include "ui/opengl/MOpenGLFrame.h"

#include "foundation/base/MGuard.h"
#include "ui/opengl/MOpenGLDevice.h"

#include <algorithm>
#include <bit>

namespace {

/// The smallest texture of powers of two that the frame takes.
constexpr uint32_t SmallestSide = 64;

int32_t RoundSide(int32_t length) {
    return static_cast<int32_t>(std::max(std::bit_ceil(static_cast<uint32_t>(length)), SmallestSide));
}

}  // namespace

bool MOpenGLFrame::Create(MPoint trialSize) {
    device.gl.GenFramebuffers(1, &buffer);
    const bool isAccepted = IsCreated() && Resize(trialSize);
    size = {};
    return isAccepted;
}

bool MOpenGLFrame::Resize(MPoint newSize) {
    const MPoint wanted =
        device.HasAnyTextureSize() ? newSize : MPoint{RoundSide(newSize.x), RoundSide(newSize.y)};
    const MOpenGLFunctions& gl = device.gl;
    const uint32_t old = texture;
    const bool isMade = MGuard("MOpenGLFrame::Resize", [&] {
        texture = device.CreateTexture(MGL::RGB8, wanted);
        gl.BindFramebuffer(MGL::FRAMEBUFFER, buffer);
        gl.FramebufferTexture2D(MGL::FRAMEBUFFER, MGL::COLOR_ATTACHMENT0, MGL::TEXTURE_2D, texture, 0);
    });
    if (isMade && old != 0) gl.DeleteTextures(1, &old);
    const bool isComplete = isMade && gl.GetError() == MGL::NO_ERROR &&
                            gl.CheckFramebufferStatus(MGL::FRAMEBUFFER) == MGL::FRAMEBUFFER_COMPLETE;
    gl.BindFramebuffer(MGL::FRAMEBUFFER, 0);
    size = newSize;
    textureSize = wanted;
    if (!isComplete) Drop();
    return isComplete;
}

void MOpenGLFrame::Drop() {
    if (buffer != 0) device.gl.DeleteFramebuffers(1, &buffer);
    if (texture != 0) device.gl.DeleteTextures(1, &texture);
    buffer = texture = 0;
}

void MOpenGLFrame::Bind() const {
    device.gl.BindFramebuffer(MGL::FRAMEBUFFER, buffer);
}

void MOpenGLFrame::Unbind() const {
    device.gl.BindFramebuffer(MGL::FRAMEBUFFER, 0);
}

void MOpenGLFrame::DrawOver() const {
    // OpenGL has the bottom row first.
    const float right = static_cast<float>(size.x) / static_cast<float>(textureSize.x);
    const float top = static_cast<float>(size.y) / static_cast<float>(textureSize.y);
    device.batch.Begin(texture, MDrawMode::Copy);
    device.batch.Add(MRect::FromSize(0, 0, size.x, size.y), {0, top, right, 0},
                     MColor::FromRGB(255, 255, 255));
    device.batch.Flush();
}
