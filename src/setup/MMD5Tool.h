#pragma once

#include "foundation/base/MList.h"
#include "foundation/views/MUserDialogs.h"
#include "streams/basic/MConsoleStream.h"

/// The tool that a maker runs on a data file: hashes the file named by the second argument, or
/// "setup.dat", and writes the digest as one line to its companion, the name with ".md5" appended.
/// A failure is shown as an error.
void MRunMD5Tool(const MList<MString>& arguments, MConsoleStream& console, MUserDialogs& dialogs);
