#include "streams/network/MHTTPReplyHead.h"

#include "foundation/base/MRaise.h"
#include "foundation/text/encodings/MEncoding.h"

#include <algorithm>
#include <charconv>

namespace {

constexpr size_t StatusLength = 3;

/// The lines of a head, read byte by byte: behind it a server that keeps the connection may send nothing.
class HeadLines {
public:
    explicit HeadLines(MStream& source) : source(source) {}

    /// False at the end of data.
    bool Read(std::string& line) {
        line.clear();
        bool isFound = false;
        for (char byte; TakeByte(byte); isFound = true) {
            if (byte == '\n' || byte == 0) return true;
            if (byte != '\r') line += byte;
        }
        return isFound;
    }

private:
    bool TakeByte(char& byte) {
        if (count++ >= MHTTPReplyHead::MaximumSize)
            MRaise(MExceptionHTTP, "HTTP reply header is longer than {0} bytes.",
                   MHTTPReplyHead::MaximumSize);
        return source.Read(&byte, 1) > 0;
    }

    MStream& source;
    int32_t count = 0;
};

bool IsBlank(char byte) {
    return static_cast<uint8_t>(byte) <= ' ';
}

bool IsDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

bool HasControls(std::string_view line) {
    return std::ranges::any_of(
        line, [](char byte) { return (static_cast<uint8_t>(byte) < ' ' && byte != '\t') || byte == '\x7F'; });
}

MString DecodeTrimmed(std::string_view bytes) {
    return MEncoding::GetUTF8Codec().Decode(bytes).Trimmed();
}

bool IsBefore(const MHTTPField& left, const MHTTPField& right) {
    return left.name.CompareNoCase(right.name) < 0;
}

[[noreturn]] void RaiseInvalidField() {
    MRaise(MExceptionHTTP, "MHTTPStream invalid HTTP reply header line.");
}

int64_t ParseContentLength(std::string_view text) {
    while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
    int64_t length = -1;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), length);
    if (error != std::errc() || end != text.data() + text.size() || length < 0) RaiseInvalidField();
    return length;
}

}  // namespace

void MHTTPReplyHead::Load(MStream& source) {
    Reset();
    MHTTPReplyHead head;
    HeadLines lines(source);
    std::string line;
    if (!lines.Read(line)) MRaise(MExceptionHTTP, "Invalid HTTP reply header.");
    head.ParseStatusLine(line);
    do {
        if (!lines.Read(line)) MRaise(MExceptionHTTP, "MHTTPStream reading HTTP reply header.");
        if (!line.empty()) head.ParseField(line);
    } while (!line.empty());
    std::ranges::stable_sort(head.fields, IsBefore);
    *this = std::move(head);
}

void MHTTPReplyHead::ParseStatusLine(std::string_view line) {
    const auto blank = static_cast<size_t>(std::ranges::find_if(line, IsBlank) - line.begin());
    const std::string_view rest = line.substr(std::min(blank + 1, line.size()));
    const std::string_view digits = rest.substr(0, StatusLength);
    if (HasControls(line) || digits.size() < StatusLength || !std::ranges::all_of(digits, IsDigit))
        MRaise(MExceptionHTTP, "Invalid HTTP reply header line.");
    std::from_chars(digits.begin(), digits.end(), status);
    statusText = DecodeTrimmed(rest.substr(StatusLength));
}

void MHTTPReplyHead::ParseField(std::string_view line) {
    const size_t colon = line.find(':');
    if (colon == std::string_view::npos || HasControls(line)) RaiseInvalidField();
    const MString name = DecodeTrimmed(line.substr(0, colon));
    const std::string_view value = line.substr(colon + 1);
    if (name == "Content-length") contentLength = ParseContentLength(value);
    fields.Add({name, DecodeTrimmed(value)});
}

const MString* MHTTPReplyHead::FindField(const MString& name) const {
    const MHTTPField* field = std::ranges::lower_bound(fields, MHTTPField{name, MString()}, IsBefore);
    return field != fields.end() && field->name == name ? &field->value : nullptr;
}
