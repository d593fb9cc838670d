#pragma once

#include "foundation/files/MFile.h"

/// The entries of a directory in the order of their names' UTF-16 units, which is the same on every platform.
/// Raises what `MFile::GetFileList` raises.
[[nodiscard]] MList<MFileListEntry> MGetSortedFileList(const MString& directory);
