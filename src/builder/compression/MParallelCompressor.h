#pragma once

#include "builder/compression/MPieceCodec.h"
#include "builder/compression/MPiecePool.h"
#include "foundation/text/MString.h"

#include <cstdint>
#include <functional>

/// Compresses items, one behind the other, into a stream. Pieces of an item and of the items behind it are
/// worked on by several threads; the bytes that come out are the same for any number of them.
///
/// All calls come from one thread, which reads the items and writes the result.
class MParallelCompressor {
public:
    /// Hears how many plain bytes have been dealt with since the last call.
    using Progress = std::function<void(int64_t)>;

    /// The codec and the target outlive the compressor. The first item starts at the target's position, which
    /// counts as 0.
    MParallelCompressor(const MPieceCodec& codec, int32_t threads, MStream& target, Progress progress = {});

    /// Adds an item of exactly `size` bytes; they have been read on return, but need not have been written.
    /// Raises what reading, compressing and writing raise (see MPieceCutter.h).
    void AddItem(MStream& source, int64_t size, const MString& name);
    /// Waits for all items to be written.
    void Finish();

    /// Where each item starts in the target, in bytes, in the order of adding; complete after `Finish`.
    [[nodiscard]] const std::vector<int64_t>& GetStarts() const { return starts; }

private:
    void WriteOldest();

    const MPieceCodec& codec;
    MStream& target;
    Progress progress;
    int64_t base;
    std::unique_ptr<MPieceJoiner> joiner;
    std::vector<int64_t> starts;
    MPiecePool pool;
};
