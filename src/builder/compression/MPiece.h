#pragma once

#include <cstdint>
#include <vector>

/// A stretch of an item that is compressed by itself, so that several can be worked on at once.
struct MPiece {
    /// Bytes of the item: first `dictionarySize` bytes that the piece before ends with, then its own.
    std::vector<uint8_t> plain;
    uint32_t dictionarySize = 0;
    bool isFirst = false;
    bool isLast = false;

    /// What compressing gave; how it is laid out is between a codec's compressor and its joiner.
    std::vector<uint8_t> packed;
    /// For codecs whose pieces do not end at a byte.
    uint64_t bitCount = 0;
    /// The codec's check sum of the plain bytes.
    uint32_t checksum = 0;

    [[nodiscard]] const uint8_t* GetOwnBytes() const { return plain.data() + dictionarySize; }
    [[nodiscard]] uint32_t GetOwnSize() const { return static_cast<uint32_t>(plain.size()) - dictionarySize; }
};
