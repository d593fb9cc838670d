#pragma once

#include "foundation/text/MString.h"

/// Leaves a copy of the running program without its payload at `path`, as what removes and updates an installation.
/// A file that is just that stays: on Windows a program that runs cannot be replaced. Raises what creating and writing
/// a file raise.
void MLeaveInstalledProgram(const MString& path);
