#pragma once

#include "foundation/xml/MXMLItem.h"

#include <cstdint>

/// What becomes of a new preset whose name the target has already.
enum MMergeMode : int32_t {
    MMergeKeep = 0,     ///< it is dropped
    MMergeReplace = 1,  ///< it overwrites the target's
    MMergeAdd = 2,      ///< it is added beside the target's
};

/// Merges the presets of `source` into `target`, level by level: presets by their `name`, folders
/// (`Directory`) by their `Name`. What the target has and the source has not stays; new presets and folders
/// come after everything that is there. An `exchangeIndex` that is not negative is written into each preset
/// that was added or changed. With `categorize` a source folder whose name tells a kind of sound is renamed
/// to its category first, which is the only change that `source` sees.
///
/// A replaced preset keeps its other attributes if the new one is packed (`compressed`), and takes those of
/// the new one if it is plain.
///
/// Gives the number of presets added or changed, at all depths. docs/presets.md shows the format.
int32_t MergePresets(MXMLItem& target, MXMLItem& source, int32_t exchangeIndex, int32_t mode,
                     bool categorize);

/// Writes `index` into the presets of `item` at all depths; without `overwrite` only into those that have
/// none. Gives the number of presets written to.
int32_t AssignExchangeIndex(MXMLItem& item, bool overwrite, const MString& index);

/// The category that a folder's name tells, or empty. The first word of the table that the name holds
/// decides.
[[nodiscard]] MString MFindPresetCategory(const MString& folderName);
