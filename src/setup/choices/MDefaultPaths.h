#pragma once

#include "foundation/xml/MXMLItem.h"

/// "DefaultPaths.xml" in the user's data directory of the maker: the directories that were chosen last,
/// shared by all the maker's installers. Each changes only its own keys.
class MDefaultPaths {
public:
    /// Reads the file; a failure of any kind gives an empty table.
    MDefaultPaths();

    /// The directory remembered under a key, or empty.
    [[nodiscard]] MString Get(const MString& key) const;
    void Set(const MString& key, const MString& path);
    /// Raises what saving raises.
    void Save();

private:
    MString file;
    MXMLItem paths;
};
