#pragma once

#include "foundation/base/MBuffer.h"
#include "foundation/base/MObject.h"
#include "foundation/text/MString.h"

#include <cstdint>
#include <string_view>

/// The codecs that translate between `MString` and byte text, found by name. Names are compared with
/// the equality of `MString`.
///
/// Codecs are shared, live as long as the process and may be used by any thread.
class MEncoding {
public:
    class Codec;
    class Reader;
    class Writer;
    class ASCIICodec;
    class UTF8Codec;
    class UTF16Codec;
    class TableCodec;

    /// An empty name gives the ASCII codec. Raises "No codec found for encoding {0}." (0).
    [[nodiscard]] static const Codec& FindCodec(const MString& name);
    [[nodiscard]] static const Codec& GetUTF8Codec();
};

/// One encoding. Text that a codec cannot express is dropped, never an error.
class MEncoding::Codec : public MObject {
public:
    Codec() = default;
    Codec(const Codec&) = delete;
    Codec& operator=(const Codec&) = delete;

    [[nodiscard]] virtual MString GetName() const = 0;
    /// Byte 0 (in UTF-16, unit 0) ends the text.
    [[nodiscard]] virtual MString Decode(std::string_view bytes) const = 0;
    [[nodiscard]] MString Decode(const MCHARBuffer& bytes) const;
    /// With `terminate` a zero follows, as wide as the encoding's unit.
    [[nodiscard]] virtual MCHARBuffer Encode(const MString& text, bool terminate) const = 0;
    /// Consumes or writes a signature. Most encodings have none.
    virtual void ReadHeader(Reader& reader) const;
    virtual void WriteHeader(Writer& writer) const;
    /// Takes a line, which ends at byte 10, byte 0 or the end of data; byte 13 is dropped.
    /// False if nothing was left to read.
    virtual bool ReadLine(Reader& reader, MString& line) const;
    virtual void WriteText(Writer& writer, const MString& text) const;
    /// The text and one character 10.
    virtual void WriteLine(Writer& writer, const MString& text) const;
};
