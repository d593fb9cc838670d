#pragma once

#include "foundation/base/MObject.h"
#include "ui/geometry/MRect.h"

#include <cstdint>
#include <memory>
#include <utility>

/// What a picture and a plane of coverage have in common. Sizes are in pixels.
class MBaseBitmap : public MObject {
public:
    MBaseBitmap() = default;
    /// A texture stays with the one that it was made from.
    MBaseBitmap(const MBaseBitmap& other) : width(other.width), height(other.height) {}
    MBaseBitmap& operator=(const MBaseBitmap& other) {
        width = other.width;
        height = other.height;
        MarkModified();
        return *this;
    }

    [[nodiscard]] int32_t GetWidth() const { return width; }
    [[nodiscard]] int32_t GetHeight() const { return height; }
    [[nodiscard]] bool IsEmpty() const { return width <= 0 || height <= 0; }
    [[nodiscard]] MRect GetRect() const { return MRect::FromSize(0, 0, width, height); }

    /// Another number after each change: where the contents are replaced, and where they are given out to be
    /// edited.
    [[nodiscard]] uint32_t GetModificationMark() const { return modificationMark; }
    /// What a drawer keeps with a picture that it paints, as its texture on a graphics card; null at first.
    /// It is freed with the picture, on the thread that frees that, and does not follow changes: its maker
    /// compares the mark.
    [[nodiscard]] MObject* GetTexture() const { return texture.get(); }
    void SetTexture(std::unique_ptr<MObject> newTexture) const { texture = std::move(newTexture); }

protected:
    void MarkModified() { ++modificationMark; }

    int32_t width = 0;
    int32_t height = 0;

private:
    uint32_t modificationMark = 0;
    mutable std::unique_ptr<MObject> texture;
};
