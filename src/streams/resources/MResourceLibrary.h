#pragma once

#include "foundation/base/MList.h"
#include "streams/resources/MResource.h"

/// Many small named items beside an XML document, in one blob. All integers are little-endian, all sizes
/// and offsets in bytes.
///
///     blob  = reserved:int32 indexSize:int32 dataSize:int32 index data
///     index = one zlib stream (RFC 1950) of an XML document in UTF-8
///     data  = item*                                 each as it stands, or one zlib stream
///
/// `reserved` is 0 when written and not looked at when read. The document may have any root. In the root's
/// sub-item `resources` each child whose name begins with "resource" is an item: its name `id`, and its
/// `offset` and `size` in `data`; `compressed` is "1" if it is a zlib stream.
/// docs/blob.md tells it at length.
///
/// An operation that raises leaves the library empty. One thread at a time.
class MResourceLibrary {
public:
    /// The largest index that is read or written, stored or decompressed: a small blob must not exhaust
    /// memory.
    static constexpr int32_t MaximumIndexSize = 0x400000;

    MResourceLibrary() = default;
    MResourceLibrary(const MResourceLibrary&) = delete;
    MResourceLibrary& operator=(const MResourceLibrary&) = delete;

    /// Reads a blob from the stream's position without copying the data: what the stream is attached to must
    /// outlive the library.
    /// Raises "Invalid resource library format." (0x100) for sizes and offsets that do not fit together,
    /// "Could not read required data from stream." (0x100) for a blob that is cut off, "Could not find
    /// required attribute ({0})." (0), and what decompressing and parsing the index raise.
    void Load(MMemoryStream& stream);
    /// Reads a blob from the stream's position into memory of its own. Raises as above.
    void Load(MStream& stream);
    /// As above; raises what opening a file raises too.
    void LoadFile(const MString& path);
    /// Takes a copy of a document that describes `data`, which is shared. Raises as `Load`.
    void Assign(const MXMLItem& document, const MBuffer& data);
    /// Writes a blob. Raises "The index of the resource library is too large." (0) if it could not be read
    /// again, and what writing raises; the library stays as it is.
    void Save(MStream& stream) const;
    void Clear();

    /// Whether nothing has been loaded: a document has a name.
    [[nodiscard]] bool IsEmpty() const { return root.GetName().IsEmpty(); }
    /// The document. An item's element stays as long as the item.
    [[nodiscard]] MXMLItem& GetRoot() { return root; }
    [[nodiscard]] int32_t GetResourceCount() const { return resources.GetCount(); }
    [[nodiscard]] MResource& GetResource(int32_t index) const { return *resources[index]; }
    [[nodiscard]] int32_t GetDataSize() const { return data.GetSize(); }

    /// Of equal ids the first one counts; case is ignored.
    [[nodiscard]] bool HasResource(const MString& id) const { return FindResource(id) != nullptr; }
    /// The item, rewound. Raises "Cannot find requested resource ({0})." (0).
    [[nodiscard]] MResource& GetResource(const MString& id) const;
    [[nodiscard]] MResource& GetResource(const char* id) const { return GetResource(MString(id)); }

private:
    struct Sizes {
        int32_t index;
        int32_t data;
    };

    [[nodiscard]] static Sizes ReadSizes(MStream& stream);
    [[nodiscard]] static MBuffer ReadBlock(MStream& stream, int32_t size);
    void LoadBorrowed(MMemoryStream& stream);
    void LoadCopied(MStream& stream);
    void LoadIndex(MMemoryStream& stored);
    void ListResources();
    void AddResource(MXMLItem& item);
    [[nodiscard]] MResource* FindResource(const MString& id) const;
    /// Does what fills the library, and clears it if that fails.
    template <class Fill>
    void Refill(Fill fill);

    MXMLItem root;
    MBuffer data;  ///< owned, or borrowed from the blob
    MList<MResource, MListOwning> resources;
};
