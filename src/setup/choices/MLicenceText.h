#pragma once

#include "streams/basic/MStream.h"

/// The whole text of an agreement: as UTF-8 where that is what it is, else as Windows-1252, with a character
/// for each byte.
/// Raises what reading raises.
[[nodiscard]] MString MReadLicence(MStream& stream);
