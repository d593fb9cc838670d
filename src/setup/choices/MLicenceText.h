#pragma once

#include "streams/basic/MStream.h"

/// The whole text of an agreement: as UTF-8 where that is what it is, as UTF-16 where its mark in the order of
/// Windows stands in front, else as Windows-1252, with a character for each byte. Raises what reading raises.
[[nodiscard]] MString MReadLicence(MStream& stream);
