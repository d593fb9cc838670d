#pragma once

#include "foundation/files/MFile.h"

/// The part of a directory's list that the platform gives: the entries of a directory that has a name, in the
/// platform's order, without "." and "..". Raises as `MFile::GetFileList`.
[[nodiscard]] MList<MFileListEntry> MListDirectory(const MString& directory, const MString& filter);
