#pragma once

#include "foundation/text/encodings/MEncoding.h"

#include <string>
#include <utility>

class MStream;

/// Takes text from a stream through a codec. The stream stays the caller's and must outlive the reader,
/// which reads ahead of what it has delivered by up to `BufferSize` bytes.
class MEncoding::Reader {
public:
    static constexpr int32_t BufferSize = 1024;

    /// Finds the codec and takes the signature. Raises as `FindCodec` and `UTF16Codec::ReadHeader` do.
    Reader(MStream& source, const MString& encoding);
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    /// False if nothing was left to read.
    bool ReadLine(MString& line) { return codec->ReadLine(*this, line); }
    /// Raise "No more data in source stream." (0x100).
    [[nodiscard]] uint8_t ReadByte();
    [[nodiscard]] char16_t ReadUnit();
    /// False if the data ends before a whole unit.
    bool TryReadUnit(char16_t& unit);

    /// The bytes that stand in the buffer, after a read if it was used up; empty at the end of data.
    [[nodiscard]] std::string_view PeekBytes();
    /// The bytes that stand in the buffer; never reads.
    [[nodiscard]] std::string_view GetBufferedBytes() const {
        return {buffer.Get() + readIndex, static_cast<size_t>(fillCount - readIndex)};
    }
    /// Takes bytes that `PeekBytes` has shown.
    void SkipBytes(int32_t count) { readIndex += count; }
    /// Takes the raw bytes of a line as `Codec::ReadLine` splits them; they stay valid until the next
    /// line is read. False at the end of data.
    bool ReadLineBytes(std::string_view& bytes);

    /// Changes the codec for what is read from now on; false if it is the one of now. Raises as `FindCodec`
    /// does.
    bool ChangeCodec(const MString& encoding) {
        const Codec* const before = std::exchange(codec, &FindCodec(encoding));
        return codec != before;
    }
    /// What follows the `count`-th `delimiter` in the bytes of the last line, decoded by the codec of now.
    [[nodiscard]] MString DecodeTailAgain(char delimiter, int32_t count) const;

private:
    /// Keeps the unread tail and reads more behind it. False at the end of data.
    bool Fill();

    MStream& source;
    const Codec* codec;
    MCHARBuffer buffer;
    int32_t fillCount = 0;
    int32_t readIndex = 0;
    bool isEndSeen = false;
    std::string lineBytes;
};
