#pragma once

#include "install/MUserDialogs.h"
#include "streams/MStdFileStream.h"

/// Compares "setup.dat" at `path` with the digest in its companion file, the path with ".md5" appended.
/// Without a readable companion there is nothing to compare. False if they differ and the user declines
/// to go on. Raises what reading the data raises.
[[nodiscard]] bool MCheckDataFile(const MString& path, MUserDialogs& dialogs);

/// Opens the data at `path`. Raises "Setup data file is corrupt. Please download it again or contact
/// support." (0).
void MOpenDataFile(const MString& path, MStdFileStream& file);

/// Raises "Setup data file is corrupt or missing. ..." (0), which is said where no data is to be found.
[[noreturn]] void MRaiseMissingParts();
