#pragma once

#include "foundation/text/MString.h"

#include <string_view>

/// Gives strings for texts that keep coming back, so that equal ones share one block. The cache has a
/// fixed size: a new text takes the place of an older one.
class MTextCache {
public:
    /// Valid until the next call.
    [[nodiscard]] const MString& Get(std::u16string_view text);

private:
    static constexpr uint32_t SlotCount = 256;

    MString slots[SlotCount];
};
