#pragma once

#include "builder/checks/MPlatforms.h"
#include "builder/definition/MDefinition.h"

#include <vector>

/// The directories of a definition that may be the main one on a platform, of which `isOn` tells: the first
/// there, and behind those that only 64-bit runs have also the next.
[[nodiscard]] std::vector<const MXMLItem*> MListMainDirectories(const MXMLItem& root,
                                                                bool (MPlatforms::*isOn)() const);

/// Warns where the products of one maker could share their main directory, which is the first that exists in
/// a run: what they remember of their installations lies there, and each would replace that of the others.
void MCheckMainDirectory(const MDefinition& definition, MProblemList& problems);
