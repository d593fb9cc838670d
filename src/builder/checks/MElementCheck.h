#pragma once

#include "builder/definition/MDefinition.h"

/// Looks for elements that nothing reads, missing elements and attributes, and numbers that are none.
class MElementCheck {
public:
    /// The definition and the problems outlive the check.
    MElementCheck(const MDefinition& definition, MProblemList& problems)
        : definition(definition), problems(problems) {}

    void Run();

private:
    void CheckItem(const MXMLItem& item);
    void CheckRequired(const MXMLItem& item, const MString& attribute);
    void CheckConditional(const MXMLItem& item);
    void CheckNumbers(const MXMLItem& item);
    void CheckSingle(const MXMLItem& item);
    void CheckScale(const MXMLItem& item);
    void CheckPages();

    const MDefinition& definition;
    MProblemList& problems;
};
