#pragma once

#include "ui/drawing/MDrawerToPixels.h"
#include "ui/opengl/MOpenGLDevice.h"
#include "ui/opengl/MOpenGLFrame.h"

#include <memory>

class MOpenGLDescriptor;

/// Whether windows are painted by OpenGL; as the file of the setting has it.
enum class MGPUMode : int32_t {
    Off,
    On,
    WithoutFrameBuffer,
};

/// Paints into a window by the fixed pipeline of OpenGL: the pixels that MDrawerToMBitmap paints, whose
/// colours differ by rounding alone, at most 2 of 255 in the mode "Alphablend". Of the other modes it knows
/// "Modulate", "Copy", "Invert", "Add" and "Subtract"; what else there is is drawn as "Alphablend".
///
/// What is painted outside of `BeginPaint` and `EndPaint` is lost. In between, another window may be painted
/// whole. Text, icons and shapes need no memory of the card but one texture; a picture is loaded when it is
/// first painted.
///
/// Belongs to the thread of the user interface.
class MDrawerOpenGL final : public MDrawerToPixels {
public:
    explicit MDrawerOpenGL(std::shared_ptr<MOpenGLDevice> device);
    MDrawerOpenGL(const MDrawerOpenGL&) = delete;
    MDrawerOpenGL& operator=(const MDrawerOpenGL&) = delete;
    ~MDrawerOpenGL() override;

    /// Once, for a window that has just been made. Raises what `MOpenGLSystem` raises, "Error creating OpenGL
    /// context. " (0) if it cannot be used, and "Fatal GPU driver malfunction." (0) for everything else that
    /// is thrown.
    void Initialize(const MNativeWindow& window, MGPUMode mode);
    /// Ends all that belongs to the window, also in the middle of a paint.
    void Close();

    /// Whether what was painted in a size is still there.
    [[nodiscard]] bool HasFrame(MPoint wanted) const { return frame.Has(wanted); }
    /// Makes the context current. Raises "Error creating OpenGL context. " (0) if that cannot be.
    void BeginPaint(MPoint newSize);
    /// Shows the window.
    void EndPaint();
    /// Between the two: what has been painted, opaque. Leaves the bitmap alone if that cannot be had.
    void GetScreenShot(MBitmap& bitmap);

    void SetPixel(MPoint point, MColor color) override;
    void Flush() override;

protected:
    [[nodiscard]] bool Prepare() override {
        return device && !device->paints.empty() && device->paints.back() == this;
    }
    [[nodiscard]] MRect GetBounds() const override { return MRect::FromSize(0, 0, size.x, size.y); }
    [[nodiscard]] MDrawMode GetBlendMode() const override { return MDrawMode::Alphablend; }
    void FillPart(const MRect& rect, MColor color, MDrawMode mode) override;
    void FillGradient(const MRect& rect, const MGradient& gradient, MDrawMode mode) override;
    void FillCoverage(const MCoverage& coverage, MColor color, MDrawMode mode) override;
    void FillCoverageGradient(const MCoverage& coverage, const MGradient& gradient, const MRect& area,
                              MDrawMode mode) override;
    void PaintPicture(const MBitmap& source, const MAxisMap& columns, const MAxisMap& rows, uint8_t alpha,
                      MDrawMode mode) override;
    void PaintMask(const MRect& part, const MAlphaMask& mask, MPoint point, MColor color,
                   MDrawMode mode) override;

private:
    void Start(MGPUMode mode);
    /// The paint that was begun before goes on, if there is one.
    void ContinuePaint() const;
    void DrawSpot(const MRect& visible, MColor color, MDrawMode mode);
    void DrawTiles(const MOpenGLDescriptor& picture, const MRect& sourceSize, const MAxisMap& columns,
                   const MAxisMap& rows, MColor color, MDrawMode mode);

    std::shared_ptr<MOpenGLDevice> device;  ///< null once closed
    std::unique_ptr<MOpenGLContext> context;
    MOpenGLFrame frame;
    MPoint size;
};
