#pragma once

#include "builder/compression/MPieceCodec.h"
#include "foundation/text/MString.h"

/// Cuts what a stream holds into the pieces that a codec wants. There is at least one, which is empty for
/// an empty stream.
class MPieceCutter {
public:
    /// The stream gives exactly `size` bytes; `name` is for messages. Stream and codec outlive the cutter.
    MPieceCutter(MStream& source, int64_t size, const MString& name, const MPieceCodec& codec);

    /// The next piece, or false after the last. Raises "\"{0}\" changed while it was being packed. Pack
    /// again when nothing writes to it." (0) if the stream holds more or less than was said.
    bool Next(MPiece& piece);

private:
    void AddDictionary(MPiece& piece) const;
    void KeepDictionary(const MPiece& piece);
    void FillWindow();
    void CheckEnd();
    [[noreturn]] void RaiseChanged() const;

    MStream& source;
    MString name;
    const MPieceCodec& codec;
    /// Bytes that were read and belong to no piece yet.
    std::vector<uint8_t> area;
    std::span<const uint8_t> window;
    std::vector<uint8_t> dictionary;
    int64_t unread;
    bool isStarted = false;
    bool isFinished = false;
};
