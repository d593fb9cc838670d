#include "ui/image/MAlphaMask.h"

#include "foundation/base/MException.h"
#include "streams/basic/MStream.h"

#include <cstring>
#include <limits>

namespace {

constexpr int32_t Magic = 0x4B53414D;

int64_t CountBytes(int32_t width, int32_t height) {
    return int64_t{width} * height;
}

[[noreturn]] void RefuseContent() {
    MRaise(MExceptionGeneral, "Alphamask stream content is invalid.");
}

}  // namespace

void MAlphaMask::Create(int32_t newWidth, int32_t newHeight) {
    CreateUnfilled(newWidth, newHeight);
    if (!IsEmpty()) std::memset(bytes.Edit(), 0, static_cast<size_t>(bytes.GetSize()));
}

void MAlphaMask::CreateUnfilled(int32_t newWidth, int32_t newHeight) {
    MarkModified();
    width = height = 0;
    bytes = MBufferT<uint8_t>();
    if (newWidth < 1 || newHeight < 1) return;
    const int64_t size = CountBytes(newWidth, newHeight);
    if (size > std::numeric_limits<int32_t>::max()) MRaise(MExceptionGeneral, "Out of memory.");
    bytes.ResizeCount(static_cast<int32_t>(size));
    width = newWidth;
    height = newHeight;
}

void MAlphaMask::Load(MStream& stream) {
    Create(0, 0);
    if (stream.ReadInt32() != Magic) RefuseContent();
    const int32_t newWidth = stream.ReadInt32();
    const int32_t newHeight = stream.ReadInt32();
    [[maybe_unused]] const int64_t reserved = stream.ReadInt64();
    if (newWidth < 0 || newHeight < 0 || CountBytes(newWidth, newHeight) > MaximumStoredSize) RefuseContent();

    MAlphaMask loaded;
    loaded.CreateUnfilled(newWidth, newHeight);
    if (loaded.IsEmpty()) return;
    stream.ReadRequired(loaded.EditBytes(), loaded.bytes.GetSize());
    *this = loaded;
}

void MAlphaMask::Save(MStream& stream) const {
    stream.WriteInt32(Magic);
    stream.WriteInt32(width);
    stream.WriteInt32(height);
    stream.WriteInt64(0);
    if (!IsEmpty()) stream.Write(GetBytes(), bytes.GetSize());
}
