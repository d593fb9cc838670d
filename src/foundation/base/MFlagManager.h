#pragma once

#include <cstdint>
#include <type_traits>

/// A mixin that holds one word of 16 or 32 flags.
template <int32_t Bits>
class MFlagManager {
    static_assert(Bits == 16 || Bits == 32);

public:
    using Word = std::conditional_t<Bits == 16, uint16_t, uint32_t>;

    void SetFlags(Word mask) { flags = static_cast<Word>(flags | mask); }
    void ClearFlags(Word mask) { flags = static_cast<Word>(flags & ~mask); }
    void AssignFlags(Word mask, bool value) { value ? SetFlags(mask) : ClearFlags(mask); }
    /// True if every bit of `mask` is set.
    [[nodiscard]] bool TestFlags(Word mask) const { return (flags & mask) == mask; }

private:
    Word flags = 0;
};
