#pragma once

#include "foundation/base/MList.h"
#include "foundation/text/MString.h"

/// The arguments in a line as they are written on Windows, by the rules of CommandLineToArgvW there: blanks
/// and tabs separate them, quotation marks hold an argument together, and backslashes count only in front of
/// a quotation mark, where two of them stand for one and a single one takes the mark as it is.
[[nodiscard]] MList<MString> MSplitCommandLine(const MString& line);
