#pragma once

#include "foundation/text/MString.h"

/// Makes what was written to a closed file survive a power cut, as far as the system can tell.
/// Raises "Error writing to file \"{0}\". Probably disk full." (0x100).
void MSyncFile(const MString& path);

/// Renames a file to another name of its directory, in one step, replacing what stands there,
/// a write-protected file too.
/// Raises "Could not rename file \"{0}\" to \"{1}\"." and the system's words (0).
void MReplaceFile(const MString& from, const MString& to);
