#pragma once

#include "foundation/base/MList.h"
#include "foundation/text/MString.h"

/// A named value of a form, or of the head of a request or reply.
struct MHTTPField {
    MString name;
    MString value;
};

using MHTTPFieldList = MList<MHTTPField>;
