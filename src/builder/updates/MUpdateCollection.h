#pragma once

#include "builder/definition/MUpdateInformation.h"

#include <vector>

/// The updates and packages of a product that a maker keeps in a directory: what a server is to offer.
class MUpdateCollection {
public:
    struct Entry {
        MUpdateInformation offer;
        MString path;      ///< canonical
        MString fileName;  ///< "NAME.dat"; NAME is what the update manager asks for
        int64_t size = 0;  ///< in bytes
    };

    /// Takes every file with the extension "dat". Each fault becomes a problem that says what is wrong, where and
    /// what to do: no such files; those that are no updates; names that cannot stand in a request; updates
    /// that do not lead from one version to the next, or that are as old as each other; those of several
    /// products. `passed` gets the names of the other files. Raises what listing the directory raises.
    void Read(const MString& directory, MList<MString>& problems, MList<MString>& passed);

    /// The updates in the order in which they are installed, then the packages, by time.
    [[nodiscard]] const std::vector<Entry>& GetEntries() const { return entries; }
    /// The reply to a request for the index.
    void MakeIndex(MXMLItem& root) const;

    /// Whether a text may be a name in a request: at most 100 letters of English, digits, "-", "_" and ".", none
    /// of these in front.
    [[nodiscard]] static bool IsRequestName(const MString& name);

private:
    void ReadFile(const MString& path, MList<MString>& problems);
    void CheckNeighbours(MList<MString>& problems) const;

    std::vector<Entry> entries;
};
