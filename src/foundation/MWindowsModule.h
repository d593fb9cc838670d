#pragma once

#include "foundation/MModule.h"

/// The module of a program with windows.
class MWindowsModule : public MModule {};
