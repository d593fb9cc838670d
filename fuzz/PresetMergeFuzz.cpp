// Merges two trees of presets: mode, stamping and categories in the first byte, then the two documents with a
// byte 0 between them. What the target had must still be there, and the result must be readable again.

#include "foundation/base/MException.h"
#include "foundation/xml/MXMLSubItems.h"
#include "install/presets/MPresetMerge.h"
#include "streams/basic/MMemoryStream.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace {

int32_t CountPresets(const MXMLItem& item) {
    int32_t count = 0;
    for ([[maybe_unused]] const MXMLItem& preset : MXMLSubItems(item, "preset")) ++count;
    for (const MXMLItem& folder : MXMLSubItems(item, "Directory")) count += CountPresets(folder);
    return count;
}

bool Load(MXMLItem& item, const uint8_t* data, size_t size) {
    try {
        MMemoryStream stream(data, static_cast<int32_t>(size));
        item.Load(stream);
        return true;
    } catch (const MException&) {
        return false;
    }
}

void CheckSaved(const MXMLItem& item) {
    MMemoryStream stream;
    item.Save(stream, false, "utf-8");
    stream.Rewind();
    MXMLItem again;
    again.Load(stream);
    if (CountPresets(again) != CountPresets(item)) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 2) return 0;
    const uint8_t choice = data[0];
    const uint8_t* const first = data + 1;
    const void* const found = std::memchr(first, 0, size - 1);
    if (!found) return 0;
    const auto* const second = static_cast<const uint8_t*>(found) + 1;
    MXMLItem target;
    MXMLItem source;
    if (!Load(target, first, static_cast<size_t>(second - 1 - first))) return 0;
    if (!Load(source, second, static_cast<size_t>(data + size - second))) return 0;

    const int32_t mode = choice % 3;
    const int32_t before = CountPresets(target);
    const int32_t arriving = CountPresets(source);
    const int32_t count = MergePresets(target, source, choice & 4 ? 0 : -1, mode, choice & 8);
    const int32_t after = CountPresets(target);
    if (after < before || after - before > count) __builtin_trap();
    if (mode == MMergeAdd && after - before != arriving) __builtin_trap();
    CheckSaved(target);
    return 0;
}
