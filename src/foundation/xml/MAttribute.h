#pragma once

#include "foundation/base/MList.h"
#include "foundation/text/MString.h"

/// A named value of a mark-up element.
struct MAttribute {
    MString name;
    MString value;
};

using MAttributeList = MList<MAttribute, MListOwning>;
