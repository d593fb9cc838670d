#pragma once

#include "builder/compression/MPiece.h"
#include "foundation/base/MObject.h"
#include "streams/basic/MStream.h"

#include <memory>
#include <span>

/// Tells where a piece ends, while its bytes come in.
class MPieceMeter : public MObject {
public:
    /// How many of these bytes, which follow those taken before, still belong to the piece.
    virtual size_t Take(std::span<const uint8_t> bytes) = 0;
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
