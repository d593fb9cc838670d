#pragma once

#include "ui/image/MColor.h"
#include "ui/image/MGDIObject.h"

#include <cstdint>
#include <memory>

class MBitmap;

/// A picture in memory that the window system reads as well: a device-independent section on Windows, whose
/// handle is the HBITMAP; a System V segment on Linux, whose handle is the identifier that MIT-SHM attaches.
/// `MColor` after `MColor`, row by row from the top without padding.
class MSysBitmap final : public MGDIObject {
public:
    enum class Form {
        Opaque,     ///< as the bitmap has it; the window system ignores the alpha
        WithAlpha,  ///< with the alpha multiplied into the colours, as the window system blends
    };

    /// Shows a bitmap of either mode, which may go afterwards; an empty one is shown as one transparent
    /// pixel. Raises "Could not create system bitmap with direct access." or "Could not create system bitmap
    /// with alpha." (0x300).
    MSysBitmap(const MBitmap& bitmap, Form form);
    /// An opaque one of a size of at least one pixel, whose pixels are unspecified; null if the system
    /// refuses.
    [[nodiscard]] static std::unique_ptr<MSysBitmap> TryToCreate(int32_t width, int32_t height);
    ~MSysBitmap() override;

    [[nodiscard]] int32_t GetWidth() const { return width; }
    [[nodiscard]] int32_t GetHeight() const { return height; }
    [[nodiscard]] Form GetForm() const { return form; }
    /// Direct access, shared with the window system: whoever has handed it the handle waits until it has read
    /// the pixels (GdiFlush on Windows, the completion event of MIT-SHM on Linux) before they change.
    [[nodiscard]] MColor* GetPixels() const { return pixels; }

private:
    /// Has neither handle nor pixels yet.
    MSysBitmap(int32_t width, int32_t height, Form form) : width(width), height(height), form(form) {}

    /// Makes the handle and the pixels; false if the system refuses.
    bool CreateShared();
    void Fill(const MBitmap& bitmap);

    int32_t width;
    int32_t height;
    Form form;
    MColor* pixels = nullptr;
};
