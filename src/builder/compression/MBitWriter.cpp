#include "builder/compression/MBitWriter.h"

#include <algorithm>

void MBitWriter::Append(uint64_t value, int32_t count) {
    while (count > 0) {
        const int32_t step = std::min(count, 8 - openCount);
        count -= step;
        const auto next = static_cast<uint32_t>(value >> count) & ((1u << step) - 1);
        openCount += step;
        open |= next << (8 - openCount);
        if (openCount == 8) Pad();
    }
}

void MBitWriter::Append(const std::vector<uint8_t>& bytes, uint64_t count) {
    const uint64_t byteCount = count / 8;
    whole.reserve(whole.size() + byteCount + 1);
    for (uint64_t i = 0; i < byteCount; ++i) {
        const uint32_t byte = bytes[i];
        whole.push_back(static_cast<uint8_t>(open | byte >> openCount));
        open = byte << (8 - openCount) & 0xFF;
    }
    const auto rest = static_cast<int32_t>(count % 8);
    if (rest > 0) Append(static_cast<uint64_t>(bytes[byteCount] >> (8 - rest)), rest);
}

void MBitWriter::Pad() {
    if (openCount == 0) return;
    whole.push_back(static_cast<uint8_t>(open));
    open = 0;
    openCount = 0;
}

void MBitWriter::WriteTo(MStream& target) {
    if (!whole.empty()) target.Write(whole.data(), static_cast<int32_t>(whole.size()));
    whole.clear();
}
