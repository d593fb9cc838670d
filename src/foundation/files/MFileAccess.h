#pragma once

#include "foundation/text/MString.h"

/// Whether the system lets this process delete a file. Also true where something else than rights is in the
/// way: that may change.
[[nodiscard]] bool MMayDelete(const MString& path);
/// Who may delete it, as part of a sentence: "the user NAME" or "an administrator".
[[nodiscard]] MString MWhoMayDelete(const MString& path);

/// Whether the system lets this process create files and folders in a folder that stands.
[[nodiscard]] bool MMayCreate(const MString& folder);
/// Who may, as `MWhoMayDelete` says it.
[[nodiscard]] MString MWhoMayCreate(const MString& folder);
