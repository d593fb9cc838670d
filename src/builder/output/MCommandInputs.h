#pragma once

#include "foundation/files/MFileIdentity.h"

#include <map>
#include <set>
#include <string>

/// The files that a command reads, the running program among them. It must write over none of them, by
/// whatever path its output is named.
class MCommandInputs {
public:
    MCommandInputs();

    /// A file, or a directory that is read. Paths are canonical.
    void Add(const MString& path);
    /// The input that writing or deleting what stands at a path would destroy, since it is the same or lies
    /// below it; empty if there is none.
    [[nodiscard]] MString FindReplaced(const MString& output) const;
    /// Raises "The output \"{0}\" would replace \"{1}\", which is read. Write it to another place." (0) if
    /// there is one, and "The output \"{0}\" is a device or a pipe. Write it to a file." (0).
    void RefuseOutput(const MString& output) const;

private:
    std::map<MFileIdentity, MString> inputs;  ///< those, and the directories around them
    std::set<std::string> known;              ///< the directories by name, so that each is asked for once
};
