#pragma once

#include "foundation/xml/MXMLItem.h"

/// What a run has put into a folder.
struct MInstalledPart {
    MString name;  ///< of the part, as the user chose it, or the product's if it has none
    MString folder;
    int32_t fileCount = 0;  ///< files written or merged
};

/// Counts what a run puts where. What goes to one folder under one name is one part, and one into which
/// nothing came is none.
class MInstalledParts {
public:
    /// From here on files belong to this `files` or `copy` element, and go to its `currentpath`.
    void Begin(const MXMLItem& pass);
    void CountFile();

    [[nodiscard]] const MList<MInstalledPart>& GetParts() const { return parts; }

private:
    MList<MInstalledPart> parts;
    MInstalledPart current;  ///< which part files belong to
};
