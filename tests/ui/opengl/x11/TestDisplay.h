#pragma once

#include "tests/ui/window/x11/MTestXServer.h"

/// That of all tests.
[[nodiscard]] const MTestXServer& GetTestServer();
