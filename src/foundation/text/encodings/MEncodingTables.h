#pragma once

#include <cstdint>

/// One 8-bit character set: its names and what its bytes from 128 to 255 stand for.
struct MEncodingTable {
    static constexpr int32_t MaximumNames = 7;
    static constexpr int32_t UnitCount = 128;

    /// The first one is canonical; unused places are null.
    const char* names[MaximumNames];
    /// A byte that the published set leaves undefined has the control character of its own value up to
    /// 159, and above that 0, which stands for no character.
    char16_t units[UnitCount];
};

inline constexpr int32_t MEncodingTableCount = 28;
extern const MEncodingTable MEncodingTables[MEncodingTableCount];
