#pragma once

#include "foundation/base/MObject.h"

#include <cstdint>

/// What a picture and a plane of coverage have in common. Sizes are in pixels.
class MBaseBitmap : public MObject {
public:
    [[nodiscard]] int32_t GetWidth() const { return width; }
    [[nodiscard]] int32_t GetHeight() const { return height; }
    [[nodiscard]] bool IsEmpty() const { return width <= 0 || height <= 0; }

protected:
    int32_t width = 0;
    int32_t height = 0;
};
