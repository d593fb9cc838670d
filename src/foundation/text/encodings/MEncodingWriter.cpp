#include "foundation/text/encodings/MEncodingWriter.h"

#include "streams/basic/MStream.h"

#include <algorithm>
#include <cstring>
#include <exception>

MEncoding::Writer::Writer(MStream& target, const MString& encoding)
    : target(target),
      codec(FindCodec(encoding)),
      buffer(BufferSize),
      exceptionsAtStart(std::uncaught_exceptions()) {
    codec.WriteHeader(*this);
}

MEncoding::Writer::~Writer() noexcept(false) {
    if (std::uncaught_exceptions() == exceptionsAtStart) Flush();
}

void MEncoding::Writer::WriteByte(uint8_t byte) {
    if (fillCount == BufferSize) Flush();
    buffer.Edit()[fillCount++] = static_cast<char>(byte);
}

void MEncoding::Writer::WriteUnit(char16_t unit) {
    if (fillCount > BufferSize - 2) Flush();
    WriteByte(static_cast<uint8_t>(unit & 0xFF));
    WriteByte(static_cast<uint8_t>(unit >> 8));
}

void MEncoding::Writer::WriteBytes(std::string_view bytes) {
    while (!bytes.empty()) {
        if (fillCount == BufferSize) Flush();
        const auto taken = std::min(bytes.size(), static_cast<size_t>(BufferSize - fillCount));
        std::memcpy(buffer.Edit() + fillCount, bytes.data(), taken);
        fillCount += static_cast<int32_t>(taken);
        bytes.remove_prefix(taken);
    }
}

void MEncoding::Writer::Flush() {
    const int32_t count = fillCount;
    fillCount = 0;
    if (count > 0) target.Write(buffer.Get(), count);
}
