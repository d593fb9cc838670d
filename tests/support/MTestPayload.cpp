#include "tests/support/MTestPayload.h"

#include "payload/MPayloadFormat.h"
#include "streams/basic/MMemoryStream.h"
#include "streams/hashes/MMD5Stream.h"

#include <bzlib.h>
#include <zlib.h>

namespace {

template <class Integer>
std::string Bytes(Integer value) {
    return {reinterpret_cast<const char*>(&value), sizeof value};
}

std::string Digest(const std::string& text) {
    MMD5Stream hash;
    hash.Write(text.data(), static_cast<int32_t>(text.size()));
    hash.Finish();
    MMemoryStream digest;
    hash.WriteDigest(digest);
    return {digest.GetBuffer().Get(), static_cast<size_t>(digest.GetSize())};
}

}  // namespace

std::string MTestPayload::Add(const std::string& content) {
    const std::string attributes = " filestart=\"" + std::to_string(items.size()) + "\" filesize=\"" +
                                   std::to_string(content.size()) + "\" ";
    items += flags & MPayloadFormat::ItemsCompressed ? Compress(content) : content;
    return attributes;
}

std::string MTestPayload::Finish(const std::string& xml) const {
    const std::string index = flags & MPayloadFormat::IndexCompressed ? Compress(xml) : xml;
    return items + index + Digest(xml) + Bytes(static_cast<int64_t>(index.size())) + Bytes(flags);
}

std::string MTestPayload::MakeTrailer(const std::string& payload) {
    return "MSFXMSFX" + Bytes(static_cast<int64_t>(payload.size()));
}

std::string MTestPayload::Compress(const std::string& content) const {
    std::string stored(content.size() * 2 + 1000, '\0');
    if (flags & MPayloadFormat::UseBzip2) {
        auto size = static_cast<unsigned>(stored.size());
        BZ2_bzBuffToBuffCompress(stored.data(), &size, const_cast<char*>(content.data()),
                                 static_cast<unsigned>(content.size()), 9, 0, 0);
        stored.resize(size);
        return stored;
    }
    auto size = static_cast<uLongf>(stored.size());
    compress(reinterpret_cast<Bytef*>(stored.data()), &size, reinterpret_cast<const Bytef*>(content.data()),
             static_cast<uLong>(content.size()));
    stored.resize(size);
    return stored;
}
