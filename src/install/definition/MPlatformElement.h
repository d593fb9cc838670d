#pragma once

#include "foundation/xml/MXMLItem.h"

/// Whether an element of a definition exists on this platform: `windows` 0 drops it. On other platforms
/// the attribute named after the platform, such as `linux`, is asked first, so that one definition can
/// serve several; without it `windows` decides there too.
[[nodiscard]] bool MIsForThisPlatform(const MXMLItem& element);
