#pragma once

#include "builder/definition/MDefinition.h"

/// Warns where the products of one maker could share their main directory, which is the first that exists in
/// a run: what they remember of their installations lies there, and each would replace that of the others.
void MCheckMainDirectory(const MDefinition& definition, MProblemList& problems);
