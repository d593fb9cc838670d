#include "foundation/text/MTextCache.h"

#include <cstring>

namespace {

/// Length and three characters tell the few names of a document apart well enough.
uint32_t HashOf(std::u16string_view text) {
    auto hash = static_cast<uint32_t>(text.size());
    if (text.empty()) return hash;
    for (const char16_t unit : {text.front(), text[text.size() / 2], text.back()}) hash = hash * 31 + unit;
    return hash;
}

bool Holds(const MString& slot, std::u16string_view text) {
    const auto size = text.size();
    return static_cast<size_t>(slot.GetLength()) == size && !slot.IsLiteral() &&
           std::memcmp(slot.GetUnits(), text.data(), size * sizeof(char16_t)) == 0;
}

}  // namespace

const MString& MTextCache::Get(std::u16string_view text) {
    MString& slot = slots[HashOf(text) % SlotCount];
    if (!Holds(slot, text)) slot = MString::Copy(text.data(), static_cast<int32_t>(text.size()));
    return slot;
}
