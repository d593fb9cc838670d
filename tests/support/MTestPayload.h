#pragma once

#include <cstdint>
#include <string>

/// Builds the bytes of a payload by the plainest means, independent of the builder.
class MTestPayload {
public:
    /// `flags` are those of MPayloadFormat.h.
    explicit MTestPayload(uint32_t flags) : flags(flags) {}

    /// Stores an item and returns its attributes: ` filestart="..." filesize="..." `.
    std::string Add(const std::string& content);
    /// The whole payload with `xml` as its index.
    [[nodiscard]] std::string Finish(const std::string& xml) const;

private:
    [[nodiscard]] std::string Compress(const std::string& content) const;

    uint32_t flags;
    std::string items;
};
