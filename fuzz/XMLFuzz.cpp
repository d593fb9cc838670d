// The bytes are a document. A tree that was read must be the same after saving and reading it again.

#include "foundation/base/MException.h"
#include "foundation/xml/MXMLItem.h"
#include "streams/basic/MMemoryStream.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace {

bool Load(MXMLItem& root, const void* data, size_t size) {
    MMemoryStream stream(data, static_cast<int32_t>(size));
    try {
        root.Load(stream);
        return true;
    } catch (const MException&) {
        return false;
    }
}

std::string Save(const MXMLItem& root) {
    MMemoryStream stream;
    root.Save(stream, true, "utf-8");
    return {stream.GetBuffer().Get(), static_cast<size_t>(stream.GetSize())};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    MXMLItem root;
    if (!Load(root, data, size)) return 0;
    const std::string first = Save(root);
    MXMLItem again;
    if (!Load(again, first.data(), first.size())) __builtin_trap();
    const std::string second = Save(again);
    MXMLItem last;
    if (!Load(last, second.data(), second.size()) || Save(last) != second) __builtin_trap();
    MXMLItem copy;
    copy.CopyFrom(root);
    if (Save(copy) != first) __builtin_trap();
    return 0;
}
