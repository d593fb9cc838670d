#include "foundation/base/MHashTable.h"

#include <algorithm>

uint32_t MStringHash(const MString& text) {
    constexpr int32_t ShortLength = 16;
    const int32_t length = text.GetLength();
    const bool isShort = length < ShortLength;
    const int32_t end = isShort ? length : std::min(8, length / 4);
    uint32_t hash = 0;
    for (int32_t i = 0; i < end; i += isShort ? 1 : 4) {
        const auto low = static_cast<signed char>(text[i].ToLower().ToNarrow());
        hash ^= static_cast<uint32_t>(static_cast<int32_t>(low)) << (i % 32);
    }
    return hash;
}
