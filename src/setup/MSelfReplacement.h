#pragma once

#include "foundation/text/MString.h"

/// Overwrites the installed "setup" program beside `executable` with `executable`, trying again every
/// second while the process that started us still holds it, and gives up without a word in the end.
/// The installed program itself is left alone.
void MReplaceInstalledSetup(const MString& executable);
