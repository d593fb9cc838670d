#pragma once

#include "foundation/base/MList.h"
#include "foundation/text/MString.h"

#include <cstdint>

/// What is to be offered for download: all that a directory holds.
struct MDownloadSetSources {
    struct File {
        MString name;      ///< in the directory, with "/" between its components
        MString path;      ///< canonical
        int64_t size = 0;  ///< in bytes
    };

    MList<MString> directories;  ///< names as those of files; each stands before those in it
    MList<File> files;
    int64_t size = 0;  ///< of all files, in bytes

    /// The number of parts of at most `partSize` bytes that the files make.
    [[nodiscard]] int64_t CountParts(int64_t partSize) const;
};

/// Looks through the directory, in an order that is the same on every platform. What cannot be offered gives
/// a problem that says what is wrong, where and what to do: no directory or no files in it; names that
/// Windows does not allow, that differ in case only, that the index cannot hold, or that the downloader needs
/// for itself; links to directories; and what is no plain file or cannot be read.
[[nodiscard]] MDownloadSetSources MCollectDownloadSetSources(const MString& directory,
                                                             MList<MString>& problems);
