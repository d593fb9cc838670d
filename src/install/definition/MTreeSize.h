#pragma once

#include "foundation/xml/MXMLItem.h"

/// What an installation has to do for the tree of a `files` element, at each place that it goes to.
struct MTreeSize {
    int32_t count = 0;  ///< files that are written or deleted
    int64_t bytes = 0;  ///< of those that are written
};

/// Counts all `file` elements below an element by their `op` and `filesize`. Raises what `MAddSize` raises.
[[nodiscard]] MTreeSize MMeasureTree(const MXMLItem& files);
