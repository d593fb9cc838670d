#include "builder/compression/MBzip2BlockMeter.h"

#include <algorithm>

namespace {

/// What the byte at a place of a run, counted from 1, takes in a block: the fourth brings the count along.
uint32_t GetCost(int32_t placeInRun) {
    if (placeInRun < 4) return 1;
    return placeInRun == 4 ? 2 : 0;
}

}  // namespace

size_t MBzip2BlockMeter::Take(std::span<const uint8_t> bytes) {
    const size_t count = std::min<size_t>(bytes.size(), plainLeft);
    size_t taken = 0;
    for (; taken < count; ++taken) {
        const uint8_t byte = bytes[taken];
        runLength = byte == lastByte && runLength < MaximumRun ? runLength + 1 : 1;
        const uint32_t cost = GetCost(runLength);
        if (cost > blockLeft) {
            // The piece ends here, whatever else is offered.
            plainLeft = static_cast<uint32_t>(taken);
            break;
        }
        blockLeft -= cost;
        lastByte = byte;
    }
    plainLeft -= static_cast<uint32_t>(taken);
    return taken;
}
