#pragma once

#include "builder/blobs/MBlobSource.h"
#include "builder/output/MCommandInputs.h"
#include "foundation/xml/MXMLItem.h"
#include "streams/basic/MMemoryStream.h"

/// Makes a resource blob (see streams/resources/MResourceLibrary.h) of a folder and an XML file, the
/// description.
///
/// The description keeps all it holds. Its `resources`, added if it is missing, gets an element for each file
/// of the folder; one that already stands there keeps its other attributes. An item is stored as a zlib
/// stream where that is smaller. The same sources give the same bytes on every platform.
class MBlobWriter {
public:
    /// The description may lie in the folder, and then is no item.
    MBlobWriter(const MString& folder, const MString& description);

    /// Reads all sources. Raises what `MCollectBlobSources` and reading raise; that the description cannot be
    /// parsed, with its line; and, with code 0, an element of `resources` that no file belongs to, and
    /// sources of more than 2 GiB.
    void ReadSources();
    /// Writes the file whole or not at all. Raises for a path inside the folder, and what
    /// `MCommandInputs::RefuseOutput`, `MResourceLibrary::Save` and writing raise.
    void WriteFile(const MString& path);

    [[nodiscard]] int32_t GetItemCount() const { return itemCount; }
    [[nodiscard]] int64_t GetSourceSize() const { return sourceSize; }

private:
    void LoadDescription();
    void AddItem(MXMLItem& resources, const MBlobSource& source);
    void StoreContent(MXMLItem& item, MMemoryStream& content);

    MString folder;
    MString description;
    MCommandInputs inputs;
    MXMLItem root;
    MMemoryStream data;
    int32_t itemCount = 0;
    int64_t sourceSize = 0;
};
