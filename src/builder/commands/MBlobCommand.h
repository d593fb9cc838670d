#pragma once

#include "builder/definition/MBuilderOptions.h"
#include "builder/output/MBuilderOutput.h"

/// Packs a folder and its description into a resource blob, or, without a description, lists one. Gives the
/// exit code. Raises what `MBlobWriter` and `MResourceLibrary` raise.
[[nodiscard]] int32_t MRunBlobCommand(const MBuilderOptions& options, MBuilderOutput& output);
