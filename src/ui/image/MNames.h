#pragma once

#include "foundation/text/MString.h"

#include <span>

/// The index of a name, in any case, or -1.
[[nodiscard]] inline int32_t MFindName(std::span<const char* const> names, const MString& text) {
    for (size_t i = 0; i < names.size(); ++i)
        if (text == names[i]) return static_cast<int32_t>(i);
    return -1;
}
