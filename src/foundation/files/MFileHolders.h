#pragma once

#include "foundation/base/MList.h"
#include "foundation/text/MString.h"

/// The programs that have the file or folder at a path open, or run from it, each by its name with the number
/// of the process: "reaper (4711)". This process is never among them, and those that the system keeps secret
/// are left out, as are all where it does not tell. It may take a second on Linux, where the list may then be
/// cut short, and as long as the system wants on Windows.
[[nodiscard]] MList<MString> MFindFileHolders(const MString& path);
