#pragma once

#include "foundation/base/MObject.h"
#include "foundation/text/MString.h"

#include <cstdint>

enum class MSeekOrigin : int32_t { Begin = 0, Current = 1, End = 2 };

/// What `MStream::ReadLine` found.
enum class MLineState : int32_t {
    Complete = 0,  ///< a line, ended by byte 10, byte 0 or the end of data after at least one byte
    Partial = 1,   ///< the buffer filled first; the rest of the line stays to be read
    End = 2,       ///< the end of data came before any byte
};

/// Every byte that the system moves passes through this class. A filter is a stream on another stream,
/// which it does not own unless a flag says so. Positions and sizes are in bytes.
///
/// A medium implements what it can do; every other service raises "Service \"{0}\" is not
/// implemented." (1). A stream belongs to one thread at a time. After an exception it can still be
/// destroyed; what was written stays written.
class MStream : public MObject {
public:
    /// The stream below a filter.
    virtual MStream* GetSubStream();
    /// Writes the whole block.
    virtual void Write(const void* block, int32_t size);
    /// Writes `count` bytes of unspecified content, in pieces; nothing for 0 or below.
    virtual void WriteFill(int32_t count);
    /// Reads at most `size` bytes and returns their number, which is short only at the end of data. A
    /// connection that broke before any byte came gives -1, which a filter takes for the end of data.
    virtual int32_t Read(void* block, int32_t size);
    /// Reads a line of at most `size` - 1 characters into a buffer that always gets a terminating 0.
    /// Byte 13 is dropped; byte 10 and byte 0 end the line and are not stored.
    virtual MLineState ReadLine(char* buffer, int32_t size);
    /// Writes as many bytes of the text's UTF-8 form as the text has characters, so it is for ASCII.
    virtual void WriteString(const MString& text);
    /// `WriteString`, then one byte 10.
    virtual void WriteLine(const MString& text);
    /// The base reads and discards to go forward, and stops early at the end of data.
    /// Raises "Invalid seek origin." (2), and not-implemented for going back.
    virtual void Seek(int64_t offset, MSeekOrigin origin);
    virtual int64_t GetPosition();
    virtual void Flush();
    /// True at the end of data.
    virtual bool IsEnd();
    /// Cuts the stream at the position.
    virtual void Truncate();
    virtual int64_t GetSize();
    virtual bool IsOpen();

    // Typed forms: little-endian, as they stand in memory, without tags.
    // Reading raises "Could not read required data from stream." (0x100) when data ends too early.
    void WriteInt8(int8_t value) { Write(&value, 1); }
    void WriteInt16(int16_t value) { Write(&value, 2); }
    void WriteInt32(int32_t value) { Write(&value, 4); }
    void WriteInt64(int64_t value) { Write(&value, 8); }
    void WriteNewline() { Write("\n", 1); }
    [[nodiscard]] int8_t ReadInt8() { return ReadValue<int8_t>(); }
    [[nodiscard]] int16_t ReadInt16() { return ReadValue<int16_t>(); }
    [[nodiscard]] int32_t ReadInt32() { return ReadValue<int32_t>(); }
    [[nodiscard]] int64_t ReadInt64() { return ReadValue<int64_t>(); }
    /// Reads exactly `size` bytes.
    void ReadRequired(void* block, int32_t size);
    void ReadBlock10(void* block) { ReadRequired(block, 10); }

    void Rewind() { Seek(0, MSeekOrigin::Begin); }
    void SeekToEnd() { Seek(0, MSeekOrigin::End); }

    /// Reads a line of any length; bytes widen by sign extension. False at the end of data.
    bool LoadLine(MString& line);
    /// As `LoadLine`; raises "Could not load a line from stream." (0x100) at the end of data.
    [[nodiscard]] MString LoadRequiredLine();
    /// Reads all to the end: byte 0 becomes a line feed, other control characters that are no text go.
    [[nodiscard]] MString LoadText(bool rewind);
    /// Rewinds and gives all bytes as upper-case hexadecimal digits, high nibble first.
    [[nodiscard]] MString LoadHexText();
    /// Writes a byte for each pair of hexadecimal digits; a trailing odd one is ignored.
    /// Raises "Invalid character to be converted to a number." (0).
    void StoreHexText(const MString& text);
    /// A 16-bit count, then that many UTF-8 bytes, no terminator; text beyond 65,535 bytes is cut.
    void WriteWireString(const MString& text);
    [[nodiscard]] MString ReadWireString();
    /// Copies from this stream's position to its end; the large form works in pieces of 1 MiB.
    void CopyAllTo(MStream& target);
    void CopyAllToInLargePieces(MStream& target);

protected:
    /// Raises "Service \"{0}\" is not implemented." (1).
    [[noreturn]] static void RaiseNotImplemented(const char* service);

private:
    template <class Value>
    Value ReadValue() {
        Value value;
        ReadRequired(&value, sizeof(Value));
        return value;
    }
};
