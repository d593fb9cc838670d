#pragma once

#include "ui/control/MControl.h"

#include <cstdint>

class MSplitter;

/// The bar of a splitter.
class MSplitterBar final : public MControl {
public:
    explicit MSplitterBar(MSplitter& splitter);

    void GetMinimalContentSize(int32_t& x, int32_t& y) override;
    void PaintContent(MDrawer& drawer) override;
    bool ProcessEvent(const MSystemEvent& event) override;
    void OnCaptureLost() override;
    [[nodiscard]] MStdCursor GetCursorAt(MPoint point) override;

private:
    bool ProcessKey(int32_t key);

    MSplitter& splitter;
    bool isDragged = false;
    int32_t grip = 0;          ///< where the bar was taken
    int32_t lengthBefore = 0;  ///< of the first panel, when it was
};
