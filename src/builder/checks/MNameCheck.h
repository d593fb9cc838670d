#pragma once

#include "builder/definition/MDefinition.h"

/// Looks for names that some platform does not take, or that lead out of their directory.
class MNameCheck {
public:
    /// Nothing is owned.
    MNameCheck(const MDefinition& definition, MProblemList& problems)
        : definition(definition), problems(problems) {}

    void Run() { CheckItem(definition.GetRoot()); }

private:
    void CheckItem(const MXMLItem& item);
    void CheckName(const MXMLItem& item, const MString& name);

    const MDefinition& definition;
    MProblemList& problems;
};
