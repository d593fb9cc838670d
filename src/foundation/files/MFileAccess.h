#pragma once

#include "foundation/text/MString.h"

/// Whether the system lets this process delete a file. Also true where something else than rights is in the
/// way: that may change.
[[nodiscard]] bool MMayDelete(const MString& path);
/// Who may delete it, as part of a sentence: "the user NAME" or "an administrator".
[[nodiscard]] MString MWhoMayDelete(const MString& path);

enum class MNewEntry { File, Folder };

/// Whether the system lets this process create something in a folder that stands. Windows lets users make
/// folders at some places where it does not let them make files.
[[nodiscard]] bool MMayCreate(MNewEntry entry, const MString& folder);
/// Who may, as `MWhoMayDelete` says it.
[[nodiscard]] MString MWhoMayCreate(const MString& folder);
