#pragma once

#include "foundation/text/MString.h"

/// Names that files and directories may have on every platform that a product is installed on.
class MFileNameRules {
public:
    MFileNameRules() = delete;

    /// What is wrong with a name, to be read behind the name: "is reserved by Windows", and so on. Empty if
    /// nothing is. A name may consist of several with slashes between them; an empty one is allowed.
    [[nodiscard]] static MString FindFault(const MString& name);

    /// The name as a file system compares it that ignores case: the lower case of the Latin, Greek and
    /// Cyrillic letters of the first blocks.
    [[nodiscard]] static MString FoldCase(const MString& name);
};
