#pragma once

#include "foundation/MList.h"
#include "foundation/MString.h"

/// A named value of a mark-up element.
struct MAttribute {
    MString name;
    MString value;
};

using MAttributeList = MList<MAttribute, MListOwning>;
