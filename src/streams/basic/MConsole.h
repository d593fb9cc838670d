#pragma once

#include "foundation/text/MString.h"

#include <cstdio>

// What is written comes from anywhere: names of files, definitions, replies of servers. What would command a
// terminal is therefore shown instead (see foundation/text/MVisibleText.h), whether one is there or not. A
// file or pipe in place of a console gets UTF-8. All give false on failure.

/// Puts the whole text on a console.
[[nodiscard]] bool MWriteConsoleText(std::FILE* file, const MString& text);
/// Puts a text over what the last line begins with, and leaves the cursor behind it.
[[nodiscard]] bool MOverwriteConsoleLine(std::FILE* file, const MString& text);

/// Whether somebody looks at what is written to `file` as it comes.
[[nodiscard]] bool MIsTerminal(std::FILE* file);

namespace MLibraryInternals {

/// Writes a text as it stands.
[[nodiscard]] bool WritePlainConsole(std::FILE* file, const MString& text);

}  // namespace MLibraryInternals
