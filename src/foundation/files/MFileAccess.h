#pragma once

#include "foundation/text/MString.h"

/// Whether the system lets this process delete a file. Also true where something else than rights is in the
/// way: that may change.
[[nodiscard]] bool MMayDelete(const MString& path);
/// Who may delete it, as part of a sentence: "the user NAME" or "an administrator".
[[nodiscard]] MString MWhoMayDelete(const MString& path);
