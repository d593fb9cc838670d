#pragma once

#include "foundation/values/MValue.h"
#include "ui/control/MStyleParts.h"

/// How a value is to be painted: its position, and that of zero where it goes from below to above that.
[[nodiscard]] MValueLook MGetValueLook(const MValue& value, uint8_t drawState);
