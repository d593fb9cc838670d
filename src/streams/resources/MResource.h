#pragma once

#include "foundation/xml/MXMLItem.h"
#include "streams/basic/MMemoryStream.h"
#include "streams/compression/MZLibStream.h"

#include <memory>

/// One named item of a resource library, which owns it and holds its bytes. It has one position, so it is
/// read by one reader at a time.
class MResource {
public:
    /// `block` holds the stored bytes; it and `item`, the element that describes them, outlive this object.
    MResource(const MString& id, const void* block, int32_t size, bool isCompressed, MXMLItem& item)
        : id(id), stored(block, size), isCompressed(isCompressed), item(&item) {}

    [[nodiscard]] const MString& GetId() const { return id; }
    /// In bytes, as it lies in the library.
    [[nodiscard]] int32_t GetStoredSize() { return static_cast<int32_t>(stored.GetSize()); }
    [[nodiscard]] bool IsCompressed() const { return isCompressed; }
    [[nodiscard]] MXMLItem& GetItem() const { return *item; }

    /// The content from its beginning, decompressed on the way. Owned by this object, and good until the
    /// next opening. Reading a compressed item raises what `MZLibStream::Read` raises.
    [[nodiscard]] MStream& Open();
    /// The content from its beginning, in the library's own memory. Raises "Attempt to attach compressed
    /// resource using memory-stream." (0).
    [[nodiscard]] MMemoryStream& OpenMemory();
    /// Back to the beginning of the stored bytes.
    void Rewind() { stored.Rewind(); }

private:
    MString id;
    MMemoryStream stored;
    /// There from the first reading on: its areas take more memory than most items do.
    std::unique_ptr<MZLibStream> plain;
    bool isCompressed;
    MXMLItem* item;
};
