#pragma once

#include "foundation/text/MString.h"

#include <cstdio>

/// Puts the whole text on a console; a file or pipe in its place gets UTF-8. False on failure.
[[nodiscard]] bool MWriteConsoleText(std::FILE* file, const MString& text);

/// Whether somebody looks at what is written to `file` as it comes.
[[nodiscard]] bool MIsTerminal(std::FILE* file);
