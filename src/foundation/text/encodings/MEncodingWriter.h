#pragma once

#include "foundation/text/encodings/MEncoding.h"

class MStream;

/// Puts text to a stream through a codec. The stream stays the caller's and must outlive the writer.
class MEncoding::Writer {
public:
    static constexpr int32_t BufferSize = 1024;

    /// Finds the codec and writes the signature. Raises as `FindCodec` and the stream do.
    Writer(MStream& target, const MString& encoding);
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;
    /// Flushes, and raises what the stream raises, unless an exception is already under way.
    ~Writer() noexcept(false);

    void WriteText(const MString& text) { codec.WriteText(*this, text); }
    /// The text and one character 10.
    void WriteLine(const MString& text) { codec.WriteLine(*this, text); }
    void WriteByte(uint8_t byte);
    /// Low byte first.
    void WriteUnit(char16_t unit);
    void WriteBytes(std::string_view bytes);
    /// Hands the buffered bytes to the stream.
    void Flush();

private:
    MStream& target;
    const Codec& codec;
    MCHARBuffer buffer;
    int32_t fillCount = 0;
    int exceptionsAtStart;
};
