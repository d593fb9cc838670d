#include "tests/support/MTestPayload.h"

#include "payload/MPayloadFormat.h"
#include "streams/hashes/MMD5Stream.h"
#include "tests/support/MTestBytes.h"

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
    return flags & MPayloadFormat::UseBzip2 ? MBzip2(content) : MDeflate(content);
}
