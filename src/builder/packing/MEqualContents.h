#pragma once

#include "builder/definition/MSourceTree.h"

#include <vector>

/// For each item the index of the first one of equal content, which is its own if there is none before it.
/// Only files of equal size are read, in pieces; they are compared by their RIPEMD-160 digests, for which,
/// unlike MD5, no two inputs of one digest are known. Raises what reading raises.
[[nodiscard]] std::vector<int32_t> MFindEqualContents(const MSourceItemList& items);

/// Whether two items, which must not be of one payload, hold the same bytes; they are compared in pieces. Raises
/// "\"{0}\" and \"{1}\" cannot be compared: ..." with the code of what reading raised.
[[nodiscard]] bool MHasEqualContent(const MSourceItem& first, const MSourceItem& second);
