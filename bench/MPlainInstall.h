#pragma once

#include "builder/definition/MBuilderOptions.h"
#include "foundation/text/MString.h"
#include "foundation/xml/MXMLItem.h"

#include <cstdint>
#include <string>
#include <vector>

/// The least that an installation has to do: the compressed bytes of each item are read, handed to the
/// library that decompresses them, and what it gives is written to the item's file. No directory is created
/// and nothing is checked beyond what that library checks.
class MPlainInstall {
public:
    /// Takes the places of the items from an executable of a product. Raises what attaching its payload
    /// raises.
    MPlainInstall(const MString& executable, MCompression compression, const MString& destination);

    /// Creates the directories for the files.
    void CreateDirectories() const;
    /// Writes the files. Raises "The plain installation of \"{0}\" failed." (0).
    void Perform() const;

private:
    struct Entry {
        int64_t start = 0;       ///< in the executable, in bytes
        int64_t storedSize = 0;  ///< in the executable, in bytes
        std::string path;
    };

    void AddEntries(const MXMLItem& parent, const MString& destination, int64_t payloadStart);
    /// A compressed item ends where the next one begins, the last one at the end of the file at the latest.
    void FindStoredSizes();

    std::string executable;
    MCompression compression;
    std::vector<Entry> entries;
};
