#pragma once

#include "builder/definition/MDefinition.h"

#include <functional>

/// Looks for ids that nothing defines: in `configurations`, and as `{macros}` of paths.
class MReferenceCheck {
public:
    /// The definition and the problems outlive the check.
    MReferenceCheck(const MDefinition& definition, MProblemList& problems)
        : definition(definition), problems(problems) {}

    void Run();

private:
    void CheckIds(const MString& elementName);
    void CheckItem(const MXMLItem& item);
    void CheckConfigurations(const MXMLItem& item);
    void CheckStart(const MXMLItem& item, const char* attribute);
    /// A path that is expanded before the user has chosen directories knows the machine's folders only.
    void CheckMacros(const MXMLItem& item, const MString& path, bool knowsDirectories);
    void CheckMacro(const MXMLItem& item, const MString& name, bool knowsDirectories);
    [[nodiscard]] bool HasX64Configuration() const;

    const MDefinition& definition;
    MProblemList& problems;
};
