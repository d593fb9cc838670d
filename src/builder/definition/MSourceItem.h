#pragma once

#include "foundation/base/MList.h"
#include "foundation/text/MString.h"

#include <cstdint>

class MXMLItem;

/// An element of a definition that stands for stored data, and the file that its data come from.
struct MSourceItem {
    MXMLItem* element = nullptr;
    MString path;
    int64_t size = 0;  ///< in bytes
};

using MSourceItemList = MList<MSourceItem>;
