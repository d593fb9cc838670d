#pragma once

#include "streams/file_sets/MMultiFileStream.h"

#include <memory>

/// A file set that comes into being whole or not at all. Index and parts are written into a directory beside
/// their places, named after the index with ".unfinished". The index takes its place last: until then, and
/// however the process ends, none stands there.
class MFileSetOutput {
public:
    /// `path` is the place of the index. What an earlier run has left unfinished is deleted. Raises what
    /// deleting, making a directory and `MMultiFileStream::Create` raise.
    MFileSetOutput(const MString& path, int64_t partSize);
    MFileSetOutput(const MFileSetOutput&) = delete;
    MFileSetOutput& operator=(const MFileSetOutput&) = delete;
    /// Deletes what has not come into its place.
    ~MFileSetOutput();

    [[nodiscard]] MMultiFileStream& GetStream() { return *set; }
    /// Ends the set, puts its files into their places, and deletes the parts that an older, larger set of the
    /// same name has left. Gives the number of parts. Raises "The output \"{0}\" is a directory. Remove it,
    /// or choose another name." (0) and what writing raises while an older set is still whole, then what
    /// deleting and renaming files raise.
    int32_t Commit();

    /// The files that writing a set with its index at `output` may replace or delete, and the directory that
    /// it does so with. Those that may be there under names in another case are among them.
    [[nodiscard]] static MList<MString> ListReplaced(const MString& output);

private:
    [[nodiscard]] MString GetPlace(const MString& name) const;
    /// Everything that can go wrong before an older set is touched.
    void Prepare(const MString& name) const;
    void Place(const MString& name) const;
    void DeletePartsBeyond(int32_t count) const;

    MString path;
    MString directory;  ///< where the set comes into being
    std::unique_ptr<MMultiFileStream> set;
};
