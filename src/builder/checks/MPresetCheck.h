#pragma once

#include "builder/definition/MDefinition.h"

/// Looks for preset files that every installation would replace, with all that users have added to them.
class MPresetCheck {
public:
    /// Nothing is owned.
    MPresetCheck(const MDefinition& definition, MProblemList& problems)
        : definition(definition), problems(problems) {}

    /// Warns once for each `files` element.
    void Run();

private:
    const MDefinition& definition;
    MProblemList& problems;
};
