#include "foundation/text/encodings/MEncodingReader.h"

#include "foundation/base/MException.h"
#include "streams/basic/MStream.h"

#include <algorithm>
#include <cstring>

namespace {

/// The index of the first byte 10 or 0, or the size.
size_t FindLineEnd(std::string_view bytes) {
    const size_t lineFeed = std::min(bytes.find('\n'), bytes.size());
    return std::min(bytes.substr(0, lineFeed).find('\0'), lineFeed);
}

}  // namespace

MEncoding::Reader::Reader(MStream& source, const MString& encoding)
    : source(source), codec(&FindCodec(encoding)), buffer(BufferSize) {
    codec->ReadHeader(*this);
}

bool MEncoding::Reader::Fill() {
    if (isEndSeen) return false;
    char* bytes = buffer.Edit();
    const int32_t left = fillCount - readIndex;
    std::memmove(bytes, bytes + readIndex, static_cast<size_t>(left));
    readIndex = 0;
    fillCount = left;
    const int32_t added = source.Read(bytes + left, BufferSize - left);
    // A stream is short only at the end of its data, and not every one may be read again there.
    isEndSeen = added < BufferSize - left;
    fillCount += std::max(added, 0);
    return added > 0;
}

uint8_t MEncoding::Reader::ReadByte() {
    if (readIndex == fillCount && !Fill()) MRaise(MExceptionStreamError, "No more data in source stream.");
    return static_cast<uint8_t>(buffer.Get()[readIndex++]);
}

char16_t MEncoding::Reader::ReadUnit() {
    char16_t unit;
    if (!TryReadUnit(unit)) MRaise(MExceptionStreamError, "No more data in source stream.");
    return unit;
}

bool MEncoding::Reader::TryReadUnit(char16_t& unit) {
    while (fillCount - readIndex < 2)
        if (!Fill()) return false;
    const char* bytes = buffer.Get() + readIndex;
    unit = static_cast<char16_t>(static_cast<uint8_t>(bytes[0]) | static_cast<uint8_t>(bytes[1]) << 8);
    readIndex += 2;
    return true;
}

std::string_view MEncoding::Reader::PeekBytes() {
    if (readIndex == fillCount) Fill();
    return GetBufferedBytes();
}

bool MEncoding::Reader::ReadLineBytes(std::string_view& bytes) {
    lineBytes.clear();
    bool isFound = false;
    bool isComplete = false;
    while (!isComplete) {
        const std::string_view piece = PeekBytes();
        if (piece.empty()) break;
        isFound = true;
        const size_t end = FindLineEnd(piece);
        isComplete = end < piece.size();
        lineBytes.append(piece.substr(0, end));
        SkipBytes(static_cast<int32_t>(isComplete ? end + 1 : end));
    }
    if (lineBytes.find('\r') != std::string::npos) std::erase(lineBytes, '\r');
    bytes = lineBytes;
    return isFound;
}

MString MEncoding::Reader::DecodeTailAgain(char delimiter, int32_t count) const {
    size_t tail = 0;
    for (; count > 0 && tail != std::string::npos; --count) {
        tail = lineBytes.find(delimiter, tail);
        if (tail != std::string::npos) ++tail;
    }
    return tail == std::string::npos ? MString() : codec->Decode(std::string_view(lineBytes).substr(tail));
}
