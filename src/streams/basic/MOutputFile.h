#pragma once

#include "streams/basic/MStdFileStream.h"

/// A file that comes into being whole or not at all: it is written beside its place under another name, and
/// what stood there before stays until it is complete.
class MOutputFile : public MStdFileStream {
public:
    /// What stands behind the name of a file that is not complete yet.
    static constexpr const char* UnfinishedSuffix = ".unfinished";

    /// Opens for writing. Raises what `MStdFileStream::Open` raises.
    explicit MOutputFile(const MString& path);
    /// Deletes what was written unless it was committed.
    ~MOutputFile() override;

    [[nodiscard]] const MString& GetPath() const { return path; }
    /// See `MCopyOwnership`.
    void CopyOwnership(const MString& from);
    /// Closes the file, which then is sure to be on the disk, but not yet in its place. Raises what
    /// `MStdFileStream::Sync` and `Close` raise.
    void Complete();
    /// Completes the file if that is not done, and puts it into its place. Raises what `Complete` and
    /// `MReplaceFile` raise.
    void Commit();
    /// As `Commit`, and gives the file the right to be executed. Raises what `MFile::MakeExecutable` raises
    /// too.
    void CommitProgram();

private:
    MString path;
    bool isCommitted = false;
};
