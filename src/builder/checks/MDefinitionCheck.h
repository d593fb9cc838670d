#pragma once

#include "builder/checks/MPlaceholders.h"
#include "builder/definition/MDefinition.h"
#include "builder/definition/MSourceTree.h"

/// Makes a definition ready to be packed, and finds all that is wrong with it on the way: reads it, fills
/// its placeholders, fills it from disk, and runs every check. `sources` was made for the definition.
/// Raises only what opening and reading the definition itself raise.
void MPrepareDefinition(const MString& path, const MPlaceholders& placeholders, MDefinition& definition,
                        MSourceTree& sources, MProblemList& problems);
