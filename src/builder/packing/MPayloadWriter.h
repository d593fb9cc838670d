#pragma once

#include "builder/compression/MParallelCompressor.h"
#include "builder/definition/MSourceTree.h"
#include "foundation/xml/MXMLItem.h"

/// Writes a payload (see payload/MPayloadFormat.h) into a stream, from the stream's position on.
class MPayloadWriter {
public:
    /// The target and the codec outlive the writer. `threads` work on compressing.
    MPayloadWriter(const MPieceCodec& codec, int32_t threads, MStream& target);

    /// Writes the items' contents, equal ones once, and gives each element its `filestart` and `filesize`.
    /// Nothing is held in memory whole. Raises what reading, compressing and writing raise.
    void WriteItems(const MSourceItemList& items, const MParallelCompressor::Progress& progress);
    /// Writes the tree and the fields that end a payload. Raises "The definition takes {0} bytes ..." (0) if
    /// no installer would read it.
    void WriteIndex(const MXMLItem& root);
    /// Writes what an executable ends with.
    void WriteTrailer();
    /// As above, for a payload of `size` bytes that something else has written.
    static void WriteTrailer(MStream& target, int64_t size);

    /// How many items were stored, equal ones counted once.
    [[nodiscard]] int32_t GetStoredCount() const { return storedCount; }

private:
    const MPieceCodec& codec;
    int32_t threads;
    MStream& target;
    int64_t base;
    int32_t storedCount = 0;
};
