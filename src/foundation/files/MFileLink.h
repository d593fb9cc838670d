#pragma once

#include "foundation/text/MString.h"

// The part of a link that the platform has a form of its own for: the shell's link files and internet
// shortcuts on Windows, entries by the freedesktop desktop entry specification elsewhere.

/// Extensions of the files, without a dot.
[[nodiscard]] MString MShellLinkExtension();
[[nodiscard]] MString MInternetLinkExtension();

/// Writes the link file `path`, which has its extension. Its working directory is that of the target, which
/// must be there; the arguments are a command line as it is written on Windows. Gives false on failure, with
/// the system's words for it left for `MSystemErrorText`; may raise instead.
[[nodiscard]] bool MWriteShellLink(const MString& path, const MString& target, const MString& arguments,
                                   const MString& description);
/// Writes a link file that shows an address in the user's browser. Raises what writing a file raises.
void MWriteInternetLink(const MString& path, const MString& address, const MString& description);

/// The working directory of a link file, in canonical form. Empty if it has none or cannot be read; may raise
/// instead.
[[nodiscard]] MString MReadShellLinkDirectory(const MString& path);
