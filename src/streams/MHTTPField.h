#pragma once

#include "foundation/MList.h"
#include "foundation/MString.h"

/// A named value of a form, or of the head of a request or reply.
struct MHTTPField {
    MString name;
    MString value;
};

using MHTTPFieldList = MList<MHTTPField>;
