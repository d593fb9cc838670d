#pragma once

#include "foundation/base/MList.h"
#include "foundation/files/MSpecialFolders.h"
#include "foundation/xml/MXMLItem.h"

/// Whose folders an installation has used for what it tells the system. Where a platform has two of them,
/// which one an installation takes depends on what the process may write to; the state says which it was, in
/// the attributes `linkowner` and `entryowner` of its root: "everybody" or "user".
class MRegistrationOwner {
public:
    MRegistrationOwner() = delete;

    /// Writes on the root of a state what holds for this process.
    static void Note(MXMLItem& state);

    /// Whose folders hold the links and the entry in the list of programs: one, or both if the platform has
    /// two and the state does not say.
    [[nodiscard]] static MList<MFolderOwner> OfLinks(const MXMLItem& state);
    [[nodiscard]] static MList<MFolderOwner> OfEntry(const MXMLItem& state);
};
