// Reads the input as a payload: attaches it, looks at its names, and reads every item as far as a bound.
// Since no mutation hits the digest of an index, the input is also taken for the parts of a payload whose
// digest is right: flags in the first byte, then the items, and the index from the first "<" on.

#include "builder/reports/MPayloadItem.h"
#include "foundation/base/MException.h"
#include "foundation/files/MFile.h"
#include "fuzz/FuzzPayload.h"
#include "install/definition/MItemNames.h"
#include "payload/MLargeResourceLibrary.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {

constexpr int32_t MaximumItems = 32;
constexpr int32_t MaximumPieces = 64;

void ReadItem(MLargeResourceLibrary& library, MXMLItem* element) {
    try {
        const std::unique_ptr<MStream> item = library.OpenItem(element);
        char piece[4096];
        int32_t pieces = 0;
        while (item->Read(piece, sizeof piece) > 0 && ++pieces < MaximumPieces) {}
        if (item->GetPosition() > item->GetSize()) __builtin_trap();
    } catch (const MException&) {
        // Refusing is right; only crashing is wrong.
    }
}

/// Names that the installer would take stay where they belong.
void CheckNames(const MXMLItem& root) {
    try {
        MCheckItemNames(root);
    } catch (const MException&) {
        return;
    }
    const MString directory = "/product/files";
    MForEachItemName(root, [&](const MXMLItem&, const MString& name) {
        const MString path = MFile::Join(directory, name);
        const bool isBelow = path.IsExactly(directory) || path.StartsWith(directory + "/");
        if (!isBelow || (MFile::Normalize(path) + "/").Contains("/../")) __builtin_trap();
    });
}

void ReadPayload(MStream& stream) {
    try {
        MLargeResourceLibrary library;
        library.Attach(&stream);
        CheckNames(library);
        const MList<MPayloadItem> items = MCollectPayloadItems(library);
        for (int32_t i = 0; i < items.GetCount() && i < MaximumItems; ++i)
            ReadItem(library, items[i].element);
    } catch (const MException&) {
        // As above.
    }
}

void WritePayload(const uint8_t* data, size_t size, MStream& payload) {
    constexpr uint8_t ItemFlags = 5;
    const std::string_view parts(reinterpret_cast<const char*>(data + 1), size - 1);
    const size_t index = std::min(parts.find('<'), parts.size());
    WriteFuzzPayload(parts.substr(0, index), parts.substr(index), data[0] & ItemFlags, payload);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    MMemoryStream stream(data, static_cast<int32_t>(size));
    ReadPayload(stream);
    if (size < 2) return 0;
    MMemoryStream payload;
    WritePayload(data, size, payload);
    payload.Rewind();
    ReadPayload(payload);
    return 0;
}
