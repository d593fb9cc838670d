#pragma once

#include "foundation/base/MList.h"
#include "foundation/xml/MXMLItem.h"

/// A product that is installed here and that the new one replaces.
struct MOlderVersion {
    MString name;
    MString setup;  ///< path of the program that removes it
};

/// Whether somebody is there to answer what a removal asks.
enum class MRemovalManner { Asking, Silent };

/// What the `uninstall` elements of a definition name and this machine has.
class MOlderVersions {
public:
    /// Looks for them. A name that is not installed is left out in silence.
    explicit MOlderVersions(const MXMLItem& definition);

    [[nodiscard]] const MList<MOlderVersion>& GetVersions() const { return versions; }
    /// Starts the version's own program with the word `uninstall`, and also `silent` if it shall ask nothing,
    /// and waits for its end. False if it could not be started or told of a failure.
    [[nodiscard]] static bool Remove(const MOlderVersion& version, MRemovalManner manner);

private:
    MList<MOlderVersion> versions;
};
