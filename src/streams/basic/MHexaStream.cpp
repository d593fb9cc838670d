#include "streams/basic/MHexaStream.h"

#include <algorithm>

namespace {

constexpr int32_t PieceSize = 128;

}  // namespace

void MHexaStream::Write(const void* block, int32_t size) {
    const auto* bytes = static_cast<const uint8_t*>(block);
    char digits[2 * PieceSize];
    while (size > 0) {
        const int32_t count = std::min(size, PieceSize);
        for (int32_t i = 0; i < count; ++i) {
            digits[2 * i] = MChar::FromHexDigit(bytes[i] >> 4).ToNarrow();
            digits[2 * i + 1] = MChar::FromHexDigit(bytes[i]).ToNarrow();
        }
        source->Write(digits, 2 * count);
        bytes += count;
        size -= count;
    }
}

int32_t MHexaStream::Read(void* block, int32_t size) {
    auto* bytes = static_cast<uint8_t*>(block);
    char digits[2 * PieceSize];
    int32_t total = 0;
    while (total < size) {
        const int32_t wanted = std::min(size - total, PieceSize);
        const int32_t count = source->Read(digits, 2 * wanted) / 2;
        for (int32_t i = 0; i < count; ++i) {
            const int32_t high = MChar(digits[2 * i]).ToHexDigit();
            bytes[total + i] = static_cast<uint8_t>(high << 4 | MChar(digits[2 * i + 1]).ToHexDigit());
        }
        total += count;
        if (count < wanted) break;
    }
    return total;
}
