#pragma once

#include "foundation/text/MUnicode.h"
#include "payload/MPayloadFormat.h"
#include "tests/support/MTestBytes.h"

/// Builds the bytes of a payload by the plainest means, independent of the builder.
class MTestPayload {
public:
    /// `flags` are those of MPayloadFormat.h.
    explicit MTestPayload(uint32_t flags) : flags(flags) {}

    /// Stores an item and returns its attributes: ` filestart="..." filesize="..." `.
    std::string Add(const std::string& content) {
        const std::string start = std::to_string(items.size());
        items += flags & MPayloadFormat::ItemsCompressed ? Compress(content) : content;
        return " filestart=\"" + start + "\" filesize=\"" + std::to_string(content.size()) + "\" ";
    }
    /// The whole payload with `xml` as its index.
    [[nodiscard]] std::string Finish(const std::string& xml) const {
        const std::string index = flags & MPayloadFormat::IndexCompressed ? Compress(xml) : xml;
        MMemoryStream digest;
        digest.StoreHexText(MDecodeUTF8Exact(MTestDigest(xml)));
        return items + index + MBytesOf(digest) + MWordOf(static_cast<int64_t>(index.size()), 8) +
               MWordOf(flags);
    }

private:
    [[nodiscard]] std::string Compress(const std::string& content) const {
        return flags & MPayloadFormat::UseBzip2 ? MBzip2(content) : MDeflate(content);
    }

    uint32_t flags;
    std::string items;
};
