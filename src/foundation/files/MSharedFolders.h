#pragma once

#include "foundation/base/MList.h"
#include "foundation/text/MString.h"

/// The folders on the ways to what this process has written, created or deleted, in which somebody else than
/// its user and root could have put other things in place of what is there: each once, since the last call.
/// Any thread may ask. Only Linux knows them (`MFileWay`); elsewhere there are none.
[[nodiscard]] MList<MString> MTakeSharedFolders();
/// To be told by what walks the ways.
void MNoteSharedFolder(const MString& path);
