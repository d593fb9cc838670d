#pragma once

#include "foundation/base/MObject.h"
#include "streams/basic/MStream.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <span>
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

/// Tells where a piece ends, while its bytes come in.
class MPieceMeter : public MObject {
public:
    /// How many of these bytes, which follow those taken before, still belong to the piece.
    virtual size_t Take(std::span<const uint8_t> bytes) = 0;
};

/// Ends a piece after a fixed number of bytes.
class MFixedPieceMeter final : public MPieceMeter {
public:
    explicit MFixedPieceMeter(size_t size) : left(size) {}

    size_t Take(std::span<const uint8_t> bytes) override {
        const size_t count = std::min(left, bytes.size());
        left -= count;
        return count;
    }

private:
    size_t left;
};

/// Puts the compressed pieces of an item together, in their order.
class MPieceJoiner : public MObject {
public:
    /// Writes a piece, and with the first and the last one what an item begins and ends with.
    virtual void Add(const MPiece& piece, MStream& target) = 0;
};

/// A way to compress items by pieces. What comes out depends on the item alone, never on how many pieces
/// are worked on at once. An object is not changed by its use: all threads share it.
class MPieceCodec : public MObject {
public:
    /// The payload's flags for this way (see payload/MPayloadFormat.h).
    [[nodiscard]] virtual uint32_t GetFlags() const = 0;
    /// How many bytes of the pieces before, at most, a piece is given as its dictionary.
    [[nodiscard]] virtual uint32_t GetDictionarySize() const { return 0; }
    [[nodiscard]] virtual std::unique_ptr<MPieceMeter> MakeMeter() const = 0;
    [[nodiscard]] virtual std::unique_ptr<MPieceJoiner> MakeJoiner() const = 0;
    /// Fills the piece's results. Raises "Data could not be compressed." (0).
    virtual void Compress(MPiece& piece) const = 0;
};
