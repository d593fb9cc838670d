#pragma once

#include "foundation/base/MList.h"
#include "foundation/text/MString.h"

/// One merge of a preset file.
struct MPresetMergeRecord {
    MString path;          ///< of the preset file
    MString sourceDigest;  ///< MD5 of the presets that came, as hexadecimal digits
    MString resultDigest;  ///< MD5 of the file that came out
    MString beforeDigest;  ///< MD5 of the file that was there, as its backup has it
};

/// Remembers the merges of a run until the run is complete. A run that follows one that was killed finds here
/// which files have their new presets already: merging them again would replace the backup, and with it the
/// only copy of what the musician had, by what is there now. A preset file that the run itself has brought
/// counts as merged too. And it finds which backup is that of a file that was being written. Of several merges in a row,
/// as when updates follow each other in one run, the backup of the first is kept.
///
/// The file "InstallerMerges.txt" stands beside the installer's log, one merge on a line: digest of the
/// source, digest of the result, digest of what was there, path, with blanks between them, in UTF-8. It is
/// there only between a merge and the end of its run, and longer if some merge has failed.
class MPresetJournal {
public:
    /// Reads what an interrupted run has left. What cannot be read is left out in silence.
    MPresetJournal();

    /// Whether the file at `path`, of which `digest` is the digest, came from just this merge.
    [[nodiscard]] bool IsMerged(const MString& path, const MString& sourceDigest,
                                const MString& digest) const;
    /// Whether the file at `path`, of which `digest` is the digest, came from any of the merges: then what the user had
    /// is in the backup of the first.
    [[nodiscard]] bool IsResult(const MString& path, const MString& digest) const;
    /// Whether a merge of the file at `path` has found the file of which `digest` is the digest.
    [[nodiscard]] bool IsBefore(const MString& path, const MString& digest) const;
    /// To be told before the result stands in its place. Raises what `MOutputFile` raises.
    void Add(const MPresetMergeRecord& record);
    /// To be told when nothing is left to be done for the file at `path`.
    void Visit(const MString& path) { visited.Add(path); }
    /// The run is complete: forgets all merges of the files that it was told of by `Visit`.
    void Complete();

private:
    void Read();
    void Rewrite() const;

    MString file;
    MList<MPresetMergeRecord> records;
    MList<MString> visited;  ///< see `Visit`
};
