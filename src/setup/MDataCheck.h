#pragma once

#include "foundation/views/MUserDialogs.h"
#include "streams/basic/MStdFileStream.h"
#include "streams/file_sets/MMultiFileStream.h"

/// Compares "setup.dat" at `path` with the digest in its companion file, the path with ".md5" appended.
/// Without a companion that has a line there is nothing to compare. False if they differ and the user
/// declines to go on. Raises what reading the data raises.
[[nodiscard]] bool MCheckDataFile(const MString& path, MUserDialogs& dialogs);

/// Opens the data at `path`. Raises "Setup data file is corrupt. Please download it again or contact
/// support." (0).
void MOpenDataFile(const MString& path, MStdFileStream& file);

/// Opens the file set of the index at `path`, and tests every part. False if some are corrupt and the user,
/// who is told which, declines to go on. Raises "Setup data file is corrupt or missing. Please make sure all
/// parts of the installation package (usually CAB files) are available and present in the same directory as
/// the setup application." (0) if the index or a part cannot be read.
[[nodiscard]] bool MCheckFileSet(const MString& path, MMultiFileStream& parts, MUserDialogs& dialogs);
