#pragma once

#include "install/presets/MPresetJournal.h"
#include "streams/basic/MStream.h"

#include <functional>

/// Gives a new stream over the presets that come; see `MLargeResourceLibrary::OpenItem`.
using MPresetSource = std::function<std::unique_ptr<MStream>()>;

/// Merges new presets into the preset file at `path`, which exists. If any were added or changed, what the
/// file held before is kept as `path` with "backup" appended, in place of an older backup. At every moment
/// the file's presets stand whole under the one name or the other, also if the process is killed.
///
/// A merge that fails leaves the file as it was, and nothing is raised as `MException`; a backup that cannot
/// be made does not keep the presets out. Gives the size of the source in bytes, or 0 if it was not opened.
int64_t MMergePresetFile(const MString& path, const MPresetSource& openSource, MPresetJournal& journal);

/// Remembers a preset file that the run brings, before what was written at `written` becomes the file at
/// `path`. A run that follows a killed one would else take it for the user's, and merge it with itself.
void MRecordNewPresetFile(const MString& path, const MString& written, MPresetJournal& journal);
