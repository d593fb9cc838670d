#pragma once

#include "streams/basic/MStream.h"

/// The setup program that stands in front of a payload: that at `path`, or, if it is empty, the one beside
/// this tool, with the tool's own extension.

/// Its canonical path.
[[nodiscard]] MString MGetSetupProgramPath(const MString& path);

/// Copies it to `target` without a payload that it may have. Raises "The setup program cannot be copied: ..."
/// with the code of what reading raised, and what writing raises with that text in front.
void MCopySetupProgram(const MString& path, MStream& target);

/// The extension that it has where it runs, without a dot: "exe" for a Windows program, else "run". Raises
/// what reading raises.
[[nodiscard]] MString MGetSetupProgramExtension(const MString& path);
