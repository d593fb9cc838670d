#include "tests/support/MTestPayload.h"

#include "foundation/text/MUnicode.h"
#include "payload/MPayloadFormat.h"
#include "tests/support/MTestBytes.h"

std::string MTestPayload::Add(const std::string& content) {
    const std::string attributes = " filestart=\"" + std::to_string(items.size()) + "\" filesize=\"" +
                                   std::to_string(content.size()) + "\" ";
    items += flags & MPayloadFormat::ItemsCompressed ? Compress(content) : content;
    return attributes;
}

std::string MTestPayload::Finish(const std::string& xml) const {
    const std::string index = flags & MPayloadFormat::IndexCompressed ? Compress(xml) : xml;
    MMemoryStream digest;
    digest.StoreHexText(MDecodeUTF8Exact(MTestDigest(xml)));
    return items + index + MBytesOf(digest) + MWordOf(static_cast<int64_t>(index.size()), 8) + MWordOf(flags);
}

std::string MTestPayload::Compress(const std::string& content) const {
    return flags & MPayloadFormat::UseBzip2 ? MBzip2(content) : MDeflate(content);
}
