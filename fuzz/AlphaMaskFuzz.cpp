// Reads the input as a plane of coverage, and saves what it gives, which must load as the same.

#include "foundation/base/MException.h"
#include "streams/basic/MMemoryStream.h"
#include "ui/image/MAlphaMask.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace {

void Require(bool isTrue) {
    if (!isTrue) __builtin_trap();
}

bool Load(MAlphaMask& mask, MStream& stream) {
    try {
        mask.Load(stream);
        return true;
    } catch (const MException&) {
        Require(mask.IsEmpty());
        return false;
    }
}

bool AreEqual(const MAlphaMask& first, const MAlphaMask& second) {
    if (first.GetWidth() != second.GetWidth() || first.GetHeight() != second.GetHeight()) return false;
    const auto size = static_cast<size_t>(first.GetWidth()) * static_cast<size_t>(first.GetHeight());
    return size == 0 || std::memcmp(first.GetBytes(), second.GetBytes(), size) == 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    MMemoryStream stream(data, static_cast<int32_t>(size));
    MAlphaMask mask(1, 1);
    if (!Load(mask, stream)) return 0;

    MMemoryStream saved;
    mask.Save(saved);
    saved.Rewind();
    MAlphaMask again;
    Require(Load(again, saved) && AreEqual(mask, again));
    return 0;
}
