#pragma once

#include "streams/basic/MStream.h"
#include "streams/network/MHTTPField.h"

#include <cstdint>
#include <string_view>

/// The head of an HTTP reply (RFC 1945):
///
///     head        = status-line *field empty-line
///     status-line = version BLANK 3DIGIT [text] line-end
///     field       = name ":" value line-end
///
/// A line ends at byte 10 or 0; byte 13 is dropped, and the text is UTF-8. The version is not looked at, and
/// around names and values blanks are trimmed. A reply may come from anybody: no head is longer than
/// `MaximumSize`, which bounds its lines, their number and the memory.
class MHTTPReplyHead {
public:
    /// In bytes, all lines together.
    static constexpr int32_t MaximumSize = 1 << 16;

    /// Reads a head, and nothing behind it. All raised have code 0x201: "Invalid HTTP reply header." for no
    /// reply at all; "Invalid HTTP reply header line." for a status line that is none; "MHTTPStream reading
    /// HTTP reply header." for a head without end; "MHTTPStream invalid HTTP reply header line." for a line
    /// without colon, a line with control characters other than tabs, and a content length that is no number
    /// of at most 63 bits; "HTTP reply header is longer than {0} bytes.". The head is then as if nothing had
    /// been read.
    void Load(MStream& source);
    /// Before any reply.
    void Reset() { *this = MHTTPReplyHead(); }

    /// -1 before a reply.
    [[nodiscard]] int32_t GetStatus() const { return status; }
    /// What follows the status, trimmed.
    [[nodiscard]] const MString& GetStatusText() const { return statusText; }
    /// The last "Content-length", in bytes; 0 if there is none.
    [[nodiscard]] int64_t GetContentLength() const { return contentLength; }
    /// Sorted by name, ignoring case; equal names in the order in which they came.
    [[nodiscard]] const MHTTPFieldList& GetFields() const { return fields; }
    /// The value of the first field of a name; null if there is none.
    [[nodiscard]] const MString* FindField(const MString& name) const;

private:
    void ParseStatusLine(std::string_view line);
    void ParseField(std::string_view line);

    int32_t status = -1;
    MString statusText;
    int64_t contentLength = 0;
    MHTTPFieldList fields;
};
