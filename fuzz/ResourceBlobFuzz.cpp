// Reads the input as a resource blob, from memory and copied, and every item as far as a bound. Since hardly
// a mutation of a compressed index is a sound one, the input is also taken for the parts of a blob: the data
// up to the first "<", and from there on the index before it is compressed.

#include "foundation/base/MException.h"
#include "streams/basic/MDispatchStream.h"
#include "streams/resources/MResourceLibrary.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace {

constexpr int32_t MaximumItems = 32;
constexpr int32_t MaximumPieces = 64;

void Require(bool isTrue) {
    if (!isTrue) __builtin_trap();
}

void ReadItem(MResource& resource) {
    try {
        char piece[4096];
        MStream& content = resource.Open();
        int32_t pieces = 0;
        while (content.Read(piece, sizeof piece) == sizeof piece && ++pieces < MaximumPieces) {}
        Require(resource.IsCompressed() || pieces == MaximumPieces ||
                content.GetPosition() == resource.GetStoredSize());
    } catch (const MException&) {
        // Refusing is right; only crashing is wrong.
    }
}

void SaveAndLoadAgain(MResourceLibrary& library) {
    MMemoryStream saved;
    library.Save(saved);
    saved.Rewind();
    MResourceLibrary again;
    again.Load(saved);
    Require(again.GetDataSize() == library.GetDataSize());
}

template <class Stream>
bool ReadBlob(Stream& stream) {
    try {
        MResourceLibrary library;
        library.Load(stream);
        for (int32_t i = 0; i < library.GetResourceCount() && i < MaximumItems; ++i) {
            Require(library.HasResource(library.GetResource(i).GetId()));
            ReadItem(library.GetResource(i));
        }
        SaveAndLoadAgain(library);
        return true;
    } catch (const MException&) {
        // As above.
        return false;
    }
}

void ReadBlobTwice(MMemoryStream& stream) {
    MMemoryStream other(stream.GetBuffer());
    MDispatchStream copied(&other);
    Require(ReadBlob(stream) == ReadBlob(copied));
}

void WriteBlob(const uint8_t* data, size_t size, MStream& blob) {
    const void* const found = size > 0 ? std::memchr(data, '<', size) : nullptr;
    const uint8_t* const document = found ? static_cast<const uint8_t*>(found) : data + size;
    MMemoryStream index;
    MZLibStream compressed;
    compressed.Open(&index, true, 1);
    compressed.Write(document, static_cast<int32_t>(data + size - document));
    compressed.Finish();
    blob.WriteInt32(0);
    blob.WriteInt32(static_cast<int32_t>(index.GetSize()));
    blob.WriteInt32(static_cast<int32_t>(document - data));
    index.Rewind();
    index.CopyAllTo(blob);
    blob.Write(data, static_cast<int32_t>(document - data));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    MMemoryStream stream(data, static_cast<int32_t>(size));
    ReadBlobTwice(stream);
    MMemoryStream parts;
    WriteBlob(data, size, parts);
    parts.Trim();
    parts.Rewind();
    ReadBlobTwice(parts);
    return 0;
}
