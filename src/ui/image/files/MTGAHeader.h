#pragma once

#include <cstdint>

class MStream;

/// The header of a TGA file of a kind that can be read (see MTGAReader.h).
struct MTGAHeader {
    static constexpr int32_t MaximumMapCount = 256;

    /// Raises "Invalid file contents. No TGA header present." and "Invalid file contents. Invalid TGA
    /// header." (0x100).
    [[nodiscard]] static MTGAHeader Read(MStream& stream);

    [[nodiscard]] bool HasMap() const { return hasMap != 0; }
    /// In bytes.
    [[nodiscard]] int32_t GetMapEntrySize() const { return (mapBits + 7) / 8; }
    [[nodiscard]] bool IsMapped() const { return (imageType & ~RunLengthBit) == 1; }
    [[nodiscard]] bool IsRunLength() const { return (imageType & RunLengthBit) != 0; }
    [[nodiscard]] bool IsFromTop() const { return (descriptor & 0x20) != 0; }
    [[nodiscard]] bool IsFromRight() const { return (descriptor & 0x10) != 0; }

    int32_t identifierLength;
    int32_t hasMap;
    int32_t imageType;
    int32_t mapFirst;
    int32_t mapCount;
    int32_t mapBits;
    int32_t width;
    int32_t height;
    int32_t pixelBits;
    int32_t descriptor;

private:
    static constexpr int32_t RunLengthBit = 8;

    [[nodiscard]] bool IsKnown() const;
};
