#pragma once

#include "foundation/text/MString.h"

#include <cstdio>

/// Makes what was written to a closed file survive a power cut, as far as the system can tell.
/// Raises "Error writing to file \"{0}\". Probably disk full." (0x100).
void MSyncFile(const MString& path);

/// Renames a file to another name on its volume, in one step, replacing what stands there, a write-protected
/// file too.
/// Raises "Could not rename file \"{0}\" to \"{1}\"." and the system's words (0).
void MReplaceFile(const MString& from, const MString& to);

/// How the content of a file can become another.
enum class MRewriteWay {
    None,     ///< not at all: the file is write-protected, for everybody or for this user
    InPlace,  ///< by writing into it: a link, or a file whose name is not this user's to give away
    Replace,  ///< by `MReplaceFile`
};

[[nodiscard]] MRewriteWay MFindRewriteWay(const MString& path);

/// Gives a file a second name, of the same directory, which nothing bears yet.
/// Raises "Could not create file link at \"{0}\" to \"{1}\"." and the system's words (0), as on file systems
/// that have no such names.
void MLinkFile(const MString& path, const MString& name);

/// Gives the file `to`, which is open as `file`, the owner, the permissions and the other attributes of the
/// file `from`, as far as this user may; it becomes open to no group that was not meant. Failures are
/// ignored.
void MCopyOwnership(const MString& from, const MString& to, std::FILE* file);
