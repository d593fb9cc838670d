#pragma once

#include "foundation/base/MList.h"
#include "foundation/xml/MXMLItem.h"

/// An element of an index that stands for stored data.
struct MPayloadItem {
    MXMLItem* element = nullptr;
    /// Where it is unpacked to, and what messages call it: "02-Presets/Halls/Large.xml" for a file of the
    /// second `files` element, "licence/terms.txt" for the others, "topimage-200/band.png" for a picture of
    /// another scale.
    MString path;
};

/// The items of an index in its order. Nothing says that their paths are harmless.
[[nodiscard]] MList<MPayloadItem> MCollectPayloadItems(const MXMLItem& root);

/// The folder of a `files` element, the `number`th of its tree, counted from 1.
[[nodiscard]] MString MGetGroupFolder(const MXMLItem& files, int32_t number);
