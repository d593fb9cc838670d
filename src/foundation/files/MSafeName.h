#pragma once

#include "foundation/text/MString.h"

/// What forbids to use a name from outside below a directory, to be read behind the name; empty if nothing
/// does. Both kinds of slashes separate. An empty name, and "." among components, stay where they are. The
/// rule is one for every platform, since one product serves all:
///
/// - "leads out of its directory": an absolute path, or a component that is ".." or becomes it, as ".. " does
/// where the system drops dots and blanks at the end.
/// - "contains a character that Windows does not allow in names": a colon, which begins a stream of a file or
///   ends a drive, or a zero, which ends the path.
/// - "is reserved by Windows": a component that is a device there, with any extension.
///
/// Names that merely cannot be created on some platform are not looked for.
[[nodiscard]] MString MFindNameFault(const MString& name);
/// Whether a name can be used below a directory by that rule.
[[nodiscard]] inline bool MIsSafeName(const MString& name) {
    return MFindNameFault(name).IsEmpty();
}
/// Whether it also is a single component that names a file: not empty, not ".", without a separator.
[[nodiscard]] bool MIsSafeFileName(const MString& name);
