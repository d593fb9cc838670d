#pragma once

#include "foundation/base/MBuffer.h"
#include "ui/geometry/MRect.h"
#include "ui/image/MBaseBitmap.h"
#include "ui/image/MColor.h"

#include <algorithm>
#include <memory>

class MAlphaMask;
class MStream;
class MSysBitmap;

/// A picture in memory: `MColor` after `MColor`, row by row from the top without padding; or, paletted, 256
/// colours and one word, and behind them a byte per pixel. This is the form that window systems take.
///
/// Copies share the pixels until one of them changes them. Belongs to one thread at a time.
class MBitmap : public MBaseBitmap {
public:
    /// In bytes, in front of the indices.
    static constexpr int32_t PaletteSize = 1028;
    static constexpr int32_t PaletteCount = 256;
    static constexpr int32_t MaximumLoadedPixels = 1 << 26;

    MBitmap();
    MBitmap(int32_t width, int32_t height);
    MBitmap(const MBitmap& other);
    MBitmap& operator=(const MBitmap& other);
    ~MBitmap() override;

    /// Makes transparent black pixels, or indices of a black palette, in place of the old ones; empty if
    /// either size is below 1. Raises "Out of memory." (0) for more than 2^31 - 1 bytes; the bitmap is then
    /// empty.
    void Create(int32_t newWidth, int32_t newHeight);
    void CreatePaletted(int32_t newWidth, int32_t newHeight);
    void Clear() { Create(0, 0); }
    /// As `Create`, for those who write every pixel: what the pixels hold is unspecified.
    void CreateUnfilled(int32_t newWidth, int32_t newHeight);
    /// As `Create` with opaque black pixels, for what is shown: its alpha stays 255 (see `MDrawer`).
    void CreateOpaque(int32_t newWidth, int32_t newHeight);
    /// As `CreateOpaque`, for the buffer of a window: in memory that the window system reads as well, so that
    /// nothing has to be transferred to show it; in plain memory where the system has none to share. Copies
    /// are in plain memory.
    void CreateSurface(int32_t newWidth, int32_t newHeight);

    /// Takes size, mode and pixels of another one.
    virtual void Assign(const MBitmap& other);
    /// Makes the mask the alpha channel, or the indices of a paletted bitmap.
    virtual void ToAlphaMask(MAlphaMask& mask) const;
    /// The picture in direct form: itself if it has that, else with the colours of its palette.
    [[nodiscard]] MBitmap ToDirect() const;
    /// What the window system shows of the pixels, made on first need and dropped when they change. Owned by
    /// the bitmap. Raise what making one raises (MSysBitmap.h). Of a surface in shared memory,
    /// `CreateSystemBitmap` gives that memory, which stays.
    virtual MSysBitmap& CreateSystemBitmap();
    virtual MSysBitmap& CreateSystemBitmapWithAlpha();
    virtual void ReleaseSystemBitmap();

    /// The memory of a surface that the window system reads as well, owned by the bitmap; null if there is
    /// none, and the pixels have to be transferred.
    [[nodiscard]] MSysBitmap* GetSharedMemory() const { return sharedMemory.get(); }

    [[nodiscard]] bool IsPaletted() const { return paletted; }
    /// Whether the bitmap was made opaque, for being shown.
    [[nodiscard]] bool IsOpaque() const { return opaque; }

    /// Of a direct bitmap; null if it is empty. Editing makes the pixels private and drops the system's
    /// bitmaps; those of a surface may only be edited when the window system has done with reading them.
    [[nodiscard]] const MColor* GetPixels() const {
        return sharedPixels ? sharedPixels : static_cast<const MColor*>(block.GetBlock());
    }
    [[nodiscard]] const MColor* GetRow(int32_t y) const { return GetPixels() + int64_t{width} * y; }
    [[nodiscard]] MColor* EditPixels();
    [[nodiscard]] MColor* EditRow(int32_t y) { return EditPixels() + int64_t{width} * y; }
    /// Of a bitmap of either form, inside its size.
    [[nodiscard]] MColor GetPixel(int32_t x, int32_t y) const;
    /// Puts `change(color)` in the place of each colour: of the pixels, or of the palette.
    template <class Function>
    void ChangeColors(Function change) {
        MColor* const colors = EditPixels();
        std::transform(colors, colors + (paletted ? PaletteCount : CountPixels()), colors, change);
    }

    /// Of a paletted bitmap: 256 colours, and the indices.
    [[nodiscard]] const MColor* GetPalette() const { return GetPixels(); }
    [[nodiscard]] const uint8_t* GetIndices() const {
        return static_cast<const uint8_t*>(block.GetBlock()) + PaletteSize;
    }
    [[nodiscard]] MColor* EditPalette() { return EditPixels(); }
    [[nodiscard]] uint8_t* EditIndices();

    /// Replace the picture by that of a file, in direct form; after a failure the bitmap is empty. A picture
    /// of more than `MaximumLoadedPixels` is taken for a damaged file. A decoder may read the stream further
    /// than the picture reaches.
    ///
    /// Raises "Error loading PNG palette." (0) while the palette is missing that the pixels need, "Error
    /// loading a PNG file." (0) for every other failure in it, the stream's own too, and, without memory,
    /// "Could not initialize libpng." or "Could not initialize libpng info structure." (0).
    void LoadPNG(MStream& stream);
    /// Raises "Error loading JPEG file - {0}" (0) with the words of libjpeg, or with "read error" if the
    /// stream ends early or fails. Inks become what they look like on white paper, without a colour profile.
    void LoadJPEG(MStream& stream);
    /// Takes colour-mapped files of 8 bits with colours of 24 or 32, and direct ones of 24 or 32 bits, each
    /// of them also in run-length form. Raises "Invalid file contents. No TGA header present." and "Invalid
    /// file contents. Invalid TGA header." (0x100), and "Could not read required data from stream." (0x100)
    /// if the pixels end early.
    void LoadTGA(MStream& stream);

    /// Writes direct pixels, with alpha unless all are opaque; the same bytes for the same picture on every
    /// platform. Raises "Empty image cannot be saved to PNG." (0), and what the stream raises.
    void SavePNG(MStream& stream) const;

private:
    /// True if a size can be; raises "Out of memory." (0) if it is too large.
    [[nodiscard]] static bool CheckSize(int32_t newWidth, int32_t newHeight, int32_t pixelSize,
                                        int32_t headSize);
    void CreateBlock(int32_t newWidth, int32_t newHeight, int32_t pixelSize, int32_t headSize);
    /// Takes the pixels over, those in shared memory as a copy.
    void TakePixels(const MBitmap& other);
    void DropSystemBitmaps();
    void LoadBy(void (*read)(MStream&, MBitmap&), MStream& stream);
    [[nodiscard]] int64_t CountPixels() const { return int64_t{width} * height; }

    bool paletted = false;
    bool opaque = false;
    MBuffer block;
    std::unique_ptr<MSysBitmap> sharedMemory;
    MColor* sharedPixels = nullptr;  ///< those of the shared memory, in place of the block
    std::unique_ptr<MSysBitmap> systemBitmap;
    std::unique_ptr<MSysBitmap> systemBitmapWithAlpha;
};
