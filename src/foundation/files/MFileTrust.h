#pragma once

#include "foundation/text/MString.h"

/// Who may have put something into a folder, or may do so while this process works in it. Nothing that stands
/// in a folder that is not `Own` can be believed: neither what a file says, nor that it is no link.
enum class MFolderTrust {
    Own,       ///< only this user and the administrator of the machine could
    NoFolder,  ///< nothing, a file, or a link, wherever that leads
    Foreign,   ///< it belongs to another user
    Shared,    ///< it belongs to this user or the administrator, and others may write into it
};

/// Looks at the folder itself, not at those that it is in.
///
/// Linux: the owner is this user or root. A folder that its group may write is shared, unless the group is
/// the user's private one, as some distributions give each user; one that all may write is shared, also where
/// its sticky bit keeps them from deleting each other's files.
///
/// Windows: on a fixed drive the owner is this user, the administrators or the system; other drives, and
/// those without owners, have no owner that this machine can judge. Who may write is not looked at, since
/// most folders outside of the user's own let all users in: `Shared` is never given.
[[nodiscard]] MFolderTrust MGetFolderTrust(const MString& path);

/// Raises "The folder \"{0}\" is not used: ..." (0), with the reason, for one that is not `Own`.
void MRequireOwnFolder(const MString& path);

/// Creates a folder into which no other user may write, and leaves what stands there as it is, whatever it
/// is. Raises as `MFile::CreateDirectory`.
void MCreateOwnFolder(const MString& path);

/// Creates the folders that lead from `base`, which stands, to `name` below it, `name` included, each so that
/// no other user may write into it. `name` is a safe one (MSafeName.h), with slashes of either kind. What
/// stands there already must be `Own`, `base` too. Raises as `MRequireOwnFolder` and `MCreateOwnFolder`.
void MCreateOwnPath(const MString& base, const MString& name);

/// Whether a file of bytes stands there: no folder, link, device or pipe.
[[nodiscard]] bool MIsPlainFile(const MString& path);
