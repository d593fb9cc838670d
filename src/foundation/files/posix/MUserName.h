#pragma once

#include "foundation/text/MString.h"

#include <sys/types.h>

/// The name of a user of the machine; the number in its place if it has none.
[[nodiscard]] MString MGetUserName(uid_t user);
