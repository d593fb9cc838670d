#pragma once

#include "install/presets/MPresetJournal.h"
#include "streams/basic/MStream.h"

#include <functional>

/// Gives a new stream over the presets that come; see `MLargeResourceLibrary::OpenItem`.
using MPresetSource = std::function<std::unique_ptr<MStream>()>;

/// What became of a merge.
struct MPresetMergeOutcome {
    int64_t sourceBytes = 0;  ///< size of the presets that came; 0 if they were not opened
    MString failure;          ///< why the file was left without them; empty if it has them
    MString backup;           ///< where this merge has kept what the file held before; empty if nowhere
};

/// Merges new presets into the preset file at `path`, which exists. If any were added or changed, what the
/// file held before is kept as `path` with "backup" appended, in place of an older backup; where no file can
/// be created there, below "InstallerBackups" in the user's data directory of the maker. Without both the
/// backup and a note in the journal nothing is changed. The file and its backup keep owner and permissions.
///
/// The result takes the file's place in one step. Where the system does not allow that, and where a link
/// stands, it is written into the file. At every moment the file's presets stand whole under the one name or
/// the other, also if the process is killed; a file that was being written then is completed from its backup
/// by the next merge.
///
/// A merge that fails leaves the file as it was, and nothing is raised as `MException`.
[[nodiscard]] MPresetMergeOutcome MMergePresetFile(const MString& path, const MPresetSource& openSource,
                                                   MPresetJournal& journal);

/// Remembers a preset file that the run brings, before what was written at `written` becomes the file at
/// `path`. A run that follows a killed one would else take it for the user's, and merge it with itself.
void MRecordNewPresetFile(const MString& path, const MString& written, MPresetJournal& journal);
