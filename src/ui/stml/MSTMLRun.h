#pragma once

#include "foundation/text/MString.h"
#include "ui/stml/MSTMLObject.h"

#include <memory>
#include <vector>

/// A piece of a paragraph: an object, or text of one look.
struct MSTMLRun {
    MSTMLLook look;
    MString text;
    std::unique_ptr<MSTMLObject> object;  ///< null for text
};

using MSTMLRunList = std::vector<MSTMLRun>;
