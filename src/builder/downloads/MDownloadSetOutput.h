#pragma once

#include "foundation/base/MList.h"
#include "foundation/text/MString.h"

/// A directory that is filled whole or not at all. Everything is written into a directory inside it, named
/// after the set with ".unfinished", and takes its place at the end.
class MDownloadSetOutput {
public:
    /// Makes the directory, with those around it that are missing, and the one inside it. What an earlier run
    /// has left unfinished is deleted. Raises what deleting and making directories raise.
    MDownloadSetOutput(const MString& directory, const MString& id);
    MDownloadSetOutput(const MDownloadSetOutput&) = delete;
    MDownloadSetOutput& operator=(const MDownloadSetOutput&) = delete;
    /// Takes back all that was made, unless it was committed.
    ~MDownloadSetOutput();

    /// Where a file or directory of the output is to be written.
    [[nodiscard]] MString GetPath(const MString& name) const;
    /// Puts everything into its place. Raises what renaming raises.
    void Commit();

    /// Whether a set can be written there: nothing stands in the directory but what an earlier run has left
    /// unfinished. Raises what listing it raises.
    [[nodiscard]] static bool IsFree(const MString& directory, const MString& id);
    /// The directory in which a set comes into being, and which is deleted first.
    [[nodiscard]] static MString GetUnfinishedPath(const MString& directory, const MString& id);

private:
    void TakeBack() const;

    MString directory;
    MString unfinished;
    MList<MString> made;    ///< the directories that were missing, from the innermost out
    MList<MString> placed;  ///< what stands where it belongs
    bool isCommitted = false;
};
