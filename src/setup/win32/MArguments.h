#pragma once

#include "foundation/base/MList.h"
#include "foundation/text/MString.h"

/// The words of a command line that comes without the program's name. Blanks separate them, quotation marks
/// hold a word together wherever they stand in it, the first word too. An empty line gives the program's own
/// path, which no keyword equals.
[[nodiscard]] MList<MString> MSplitArguments(const wchar_t* commandLine);
