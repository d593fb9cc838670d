#pragma once

#include "foundation/base/MList.h"
#include "foundation/text/MString.h"

class MStream;

/// What a downloader carries in place of a payload: which package it fetches, and from where. Stored as a
/// compressed tree:
///
///     <download ID="package"> <Mirror>http://host/folder</Mirror> ... </download>
class MDownloadDefinition {
public:
    /// Raises what `MXMLItem::LoadCompressed` raises, and "Could not find required attribute (ID)." (0).
    explicit MDownloadDefinition(MStream& stream);

    /// The name of the package, and of its directory on the mirrors.
    [[nodiscard]] const MString& GetID() const { return id; }
    /// Addresses of the package's directory, each with "/" at its end. May be empty.
    [[nodiscard]] const MList<MString>& GetMirrors() const { return mirrors; }

private:
    MString id;
    MList<MString> mirrors;
};
