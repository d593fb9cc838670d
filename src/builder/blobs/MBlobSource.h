#pragma once

#include "foundation/base/MList.h"
#include "foundation/text/MString.h"

/// A file that becomes an item of a resource blob.
struct MBlobSource {
    MString id;
    MString path;  ///< canonical
};

/// The files below a folder, sorted by id; `leftOut` does not count. An id is the file's path in the folder
/// without its extension, and with "_" for each "/". All paths are canonical.
///
/// Raises, always with code 0, for what is no folder, a file whose id would have other characters than ASCII
/// letters, digits, "_", "-" and ".", files of one id, links to directories, and what is no plain file; and
/// what listing a directory raises.
[[nodiscard]] MList<MBlobSource> MCollectBlobSources(const MString& folder, const MString& leftOut);
