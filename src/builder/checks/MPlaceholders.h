#pragma once

#include "builder/definition/MDefinition.h"
#include "foundation/base/MList.h"

/// Texts that the command line gives for the `{{NAME}}` of a definition. Names are compared ignoring case.
class MPlaceholders {
public:
    /// Takes "NAME=TEXT". Raises "\"{0}\" defines nothing. Write NAME=TEXT." (0).
    void Define(const MString& assignment);
    /// Fills the attribute values and texts of a definition. What nothing fills is a problem, and stays.
    void Fill(MDefinition& definition, MProblemList& problems) const;

private:
    void FillItem(MXMLItem& item, const MDefinition& definition, MProblemList& problems) const;
    [[nodiscard]] MString FillText(const MString& text, int32_t line, MProblemList& problems) const;
    /// Null if the name is not defined.
    [[nodiscard]] const MString* Find(const MString& name) const;

    MList<MString> names;
    MList<MString> texts;
};
