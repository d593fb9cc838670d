#pragma once

#include "foundation/text/MString.h"

#include <cstdint>

/// Names that files and directories may have on every platform that a product is installed on.
class MFileNameRules {
public:
    MFileNameRules() = delete;

    /// What is wrong with a name, to be read behind the name: "is reserved by Windows", and so on. Empty if
    /// nothing is: then it can be used by the rule of `MFindNameFault`, every platform has it, and it comes
    /// back from XML as it is. A name may consist of several with slashes between them; an empty one is
    /// allowed. `suffixLength` tells how much longer the name on the disk is, in bytes of ASCII.
    [[nodiscard]] static MString FindFault(const MString& name, int32_t suffixLength = 0);

    /// The name as a file system compares it that ignores case: the lower case of the Latin, Greek and
    /// Cyrillic letters of the first blocks.
    [[nodiscard]] static MString FoldCase(const MString& name);
};
