#pragma once

#include "ui/drawing/MDrawerToMBitmap.h"
#include "ui/window/MWindowPainter.h"

/// The picture of a window in memory, from which the platform shows it.
class MBackBuffer final : public MWindowPainter {
public:
    [[nodiscard]] bool HasPicture(MPoint size) const override {
        return MPoint{backBuffer.GetWidth(), backBuffer.GetHeight()} == size;
    }
    [[nodiscard]] MDrawer& GetDrawer() override { return drawer; }
    [[nodiscard]] const MBitmap* GetBitmap() const override { return &backBuffer; }
    [[nodiscard]] bool TakePicture(MControl&, MBitmap& bitmap) override {
        bitmap = backBuffer;
        return true;
    }
    [[nodiscard]] bool BeginPaint(MPoint size) override;

private:
    MBitmap backBuffer;
    MDrawerToMBitmap drawer;
};
