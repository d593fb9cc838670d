#pragma once

#include "ui/image/MColor.h"
#include "ui/image/files/MTGAHeader.h"

#include <array>

class MStream;

/// The colour map and the pixels of a TGA file (see MTGAReader.h), in the order in which they are stored.
/// Raises "Could not read required data from stream." (0x100) where the data end.
class MTGAPixels {
public:
    /// Reads the colour map of mapped pixels, with which the stream goes on.
    MTGAPixels(MStream& stream, const MTGAHeader& header);

    /// Of packets that hold more than is left, the rest is dropped.
    void Read(MColor* pixels, int32_t count);

private:
    static constexpr int32_t MaximumPacket = 128;

    void ReadMap(const MTGAHeader& header);
    void ReadPackets(MColor* pixels, int32_t count);
    /// As many as a packet holds at most.
    void ReadPlain(MColor* pixels, int32_t count);

    MStream& stream;
    bool isRunLength;
    bool isMapped;
    int32_t pixelSize;
    /// What the map does not hold is black.
    std::array<MColor, MTGAHeader::MaximumMapCount> map{};
};
