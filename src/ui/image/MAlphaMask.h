#pragma once

#include "foundation/base/MBuffer.h"
#include "ui/image/MBaseBitmap.h"

class MStream;

/// A plane of coverage: one byte per pixel, from 0 for nothing to 255 for all, row by row from the top
/// without padding. Copies share the plane until one of them changes it.
///
/// Stored: the word 0x4B53414D ("MASK"), width, height and two words that mean nothing, each of 32 bits and
/// little-endian, then the bytes.
class MAlphaMask : public MBaseBitmap {
public:
    /// The largest plane that is loaded, in bytes.
    static constexpr int32_t MaximumStoredSize = 1 << 28;

    MAlphaMask() = default;
    MAlphaMask(int32_t width, int32_t height) { Create(width, height); }

    /// Makes a plane of zeros in place of the old one; empty if either size is below 1. Raises "Out of
    /// memory." (0) for more than 2^31 - 1 bytes.
    void Create(int32_t newWidth, int32_t newHeight);
    /// As `Create`, for those who write every byte: what the plane holds is unspecified.
    void CreateUnfilled(int32_t newWidth, int32_t newHeight);

    /// The plane, or one row of it; null if empty. Editing makes it private.
    [[nodiscard]] const uint8_t* GetBytes() const { return bytes.Get(); }
    [[nodiscard]] const uint8_t* GetRow(int32_t y) const { return GetBytes() + int64_t{width} * y; }
    [[nodiscard]] uint8_t* EditBytes() {
        MarkModified();
        return bytes.Edit();
    }
    [[nodiscard]] uint8_t* EditRow(int32_t y) { return EditBytes() + int64_t{width} * y; }

    /// Replaces the plane. Raises "Alphamask stream content is invalid." (0) if the first word is another or
    /// the sizes cannot be those of a plane, and "Could not read required data from stream." (0x100) if the
    /// data end too early; the mask is then empty.
    void Load(MStream& stream);
    void Save(MStream& stream) const;

private:
    MBufferT<uint8_t> bytes;
};
