#include "tests/support/MTestPayload.h"

#include "payload/MPayloadFormat.h"
#include "streams/hashes/MMD5Stream.h"
#include "tests/support/MTestBytes.h"

#include <bzlib.h>
#include <zlib.h>

std::string MTestPayload::Add(const std::string& content) {
    const std::string attributes = " filestart=\"" + std::to_string(items.size()) + "\" filesize=\"" +
                                   std::to_string(content.size()) + "\" ";
    items += flags & MPayloadFormat::ItemsCompressed ? Compress(content) : content;
    return attributes;
}

std::string MTestPayload::Finish(const std::string& xml) const {
    const std::string index = flags & MPayloadFormat::IndexCompressed ? Compress(xml) : xml;
    MMD5Stream hash;
    hash.Write(xml.data(), static_cast<int32_t>(xml.size()));
    hash.Finish();
    MMemoryStream digest;
    hash.WriteDigest(digest);
    return items + index + MBytesOf(digest) + MWordOf(static_cast<int64_t>(index.size()), 8) + MWordOf(flags);
}

std::string MTestPayload::MakeTrailer(const std::string& payload) {
    return "MSFXMSFX" + MWordOf(static_cast<int64_t>(payload.size()), 8);
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
