// Reads the input as a payload: attaches it, and reads every item as far as a bound.

#include "builder/MPayloadItem.h"
#include "foundation/MException.h"
#include "payload/MLargeResourceLibrary.h"
#include "streams/MMemoryStream.h"

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

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    MMemoryStream stream(data, static_cast<int32_t>(size));
    try {
        MLargeResourceLibrary library;
        library.Attach(&stream);
        const MList<MPayloadItem> items = MCollectPayloadItems(library);
        for (int32_t i = 0; i < items.GetCount() && i < MaximumItems; ++i) ReadItem(library, items[i].element);
    } catch (const MException&) {
        return 0;
    }
    return 0;
}
