#pragma once

#include "ui/control/MControl.h"
#include "ui/drawing/MDrawer.h"
#include "ui/image/MBitmap.h"

/// How the picture of a window comes about: opaque, as large as the root. It is painted in memory, from which
/// the platform shows it (`MBackBuffer`), or by a graphics card, which shows it by itself.
class MWindowPainter : public MObject {
public:
    /// Paints what is dirty of the root. Returns what has to be shown now: `rect`, or, if nothing is left of
    /// what was painted before, the whole window; nothing if the window has ended in a paint. In window
    /// coordinates. Handlers may end the root, so the caller shares the painter for so long.
    [[nodiscard]] MRect PaintWindow(MControl& root, const MRect& rect);

    /// Whether a picture of this size stands, to be painted in part.
    [[nodiscard]] virtual bool HasPicture(MPoint size) const = 0;
    /// What `PaintWindow` lets the root paint with.
    [[nodiscard]] virtual MDrawer& GetDrawer() = 0;
    /// The picture in memory, for the platform to show; null if it has been shown.
    [[nodiscard]] virtual const MBitmap* GetBitmap() const = 0;
    /// Copies what the window shows, which may be painted once more for that. False if that cannot be had.
    [[nodiscard]] virtual bool TakePicture(MControl& root, MBitmap& bitmap) = 0;
    /// The native window goes now; nothing is shown any more.
    virtual void OnWindowDestroyed() {}

    // The two ends of a paint.
    /// Returns false if what was painted before is lost, as in another size. Raises an `MException` if there
    /// can be no picture.
    [[nodiscard]] virtual bool BeginPaint(MPoint size) = 0;
    virtual void EndPaint() {}
};
