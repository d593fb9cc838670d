#include "tests/support/MTestBytes.h"

#include "foundation/xml/MXMLItem.h"
#include "streams/hashes/MMD5Text.h"
#include "tests/support/MTestText.h"

#include <bzlib.h>
#include <zlib.h>

MMemoryStream MStreamOf(const std::string& bytes) {
    return {bytes.data(), static_cast<int32_t>(bytes.size())};
}

std::string MBytesOf(MMemoryStream& stream) {
    const char* bytes = stream.GetBuffer().Get();
    return bytes ? std::string(bytes, static_cast<size_t>(stream.GetSize())) : std::string();
}

std::string MBytesOf(const MCHARBuffer& buffer) {
    return {buffer.Get(), static_cast<size_t>(buffer.GetSize())};
}

std::string MReadAll(MStream& stream, int32_t pieceSize) {
    std::string bytes;
    std::string piece(static_cast<size_t>(pieceSize), 0);
    int32_t count;
    while ((count = stream.Read(piece.data(), pieceSize)) > 0)
        bytes.append(piece, 0, static_cast<size_t>(count));
    return bytes;
}

std::string MTestNoise(size_t size, uint32_t seed) {
    std::string bytes(size, 0);
    for (char& byte : bytes) byte = static_cast<char>((seed = seed * 1664525 + 1013904223) >> 24);
    return bytes;
}

std::string MWordOf(int64_t value, size_t size) {
    return {reinterpret_cast<const char*>(&value), size};
}

std::string MDeflate(const std::string& bytes) {
    auto size = compressBound(static_cast<uLong>(bytes.size()));
    std::string packed(size, 0);
    compress2(reinterpret_cast<Bytef*>(packed.data()), &size, reinterpret_cast<const Bytef*>(bytes.data()),
              static_cast<uLong>(bytes.size()), 9);
    packed.resize(size);
    return packed;
}

std::string MBzip2(const std::string& bytes) {
    auto size = static_cast<unsigned>(bytes.size() + bytes.size() / 100 + 600);
    std::string packed(size, 0);
    BZ2_bzBuffToBuffCompress(packed.data(), &size, const_cast<char*>(bytes.data()),
                             static_cast<unsigned>(bytes.size()), 9, 0, 0);
    packed.resize(size);
    return packed;
}

std::string MTestDigest(const std::string& bytes) {
    return Text(MMD5OfBlock(bytes.data(), static_cast<int32_t>(bytes.size())));
}

void MLoadXML(MXMLItem& root, const std::string& text) {
    MMemoryStream stream = MStreamOf(text);
    root.Load(stream);
}

std::string MSaveXML(const MXMLItem& item) {
    MMemoryStream stream;
    item.Save(stream, true, "utf-8");
    const std::string document = MBytesOf(stream);
    return document.substr(document.find('\n') + 1);
}
