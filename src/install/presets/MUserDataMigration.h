#pragma once

#include "foundation/text/MString.h"

/// Brings what earlier versions have left in the parent of `destination`, the user's data directory of the
/// maker, down into it: preset files and the maker's three shared folders, file by file. What is there
/// already stays, and then the older file stays in its place too.
/// A step that fails is left out in silence, and the next one follows; nothing is raised.
void MigrateUserData(const MString& destination);
