#pragma once

#include "foundation/base/MList.h"
#include "foundation/text/MString.h"

/// One merge of a preset file.
struct MPresetMergeRecord {
    MString path;          ///< of the preset file
    MString sourceDigest;  ///< MD5 of the presets that came, as hexadecimal digits
    MString resultDigest;  ///< MD5 of the file that came out
};

/// Remembers the merges of a run until the run is complete. A run that follows one that was killed finds here
/// which files have their new presets already: merging them again would replace the backup, and with it the
/// only copy of what the musician had, by what is there now. A preset file that the run itself has brought
/// counts as merged too.
///
/// The file "InstallerMerges.txt" stands beside the installer's log, one merge on a line: digest of the
/// source, digest of the result, path, with blanks between them, in UTF-8. It is there only between a merge
/// and the end of its run. Whatever cannot be read or written is left out in silence: then the next run
/// merges again.
class MPresetJournal {
public:
    /// Reads what an interrupted run has left.
    MPresetJournal();

    /// Whether the file at `path`, of which `digest` is the digest, came from just this merge.
    [[nodiscard]] bool IsMerged(const MString& path, const MString& sourceDigest, const MString& digest);
    /// To be told before the result stands in its place.
    void Add(const MPresetMergeRecord& record);
    /// The run is complete: forgets all merges of the files that it has come by.
    void Complete();

private:
    void Read();
    void Rewrite() const;

    MString file;
    MList<MPresetMergeRecord> records;
    MList<MString> visited;  ///< paths of the files that this run has come by
};
