// The bytes are the reply of a server. A head that is taken must be in order and end at a line, and where it
// leads to must be an address.

#include "foundation/base/MException.h"
#include "streams/basic/MMemoryStream.h"
#include "streams/network/MHTTPStream.h"

#include <cstddef>
#include <cstdint>

namespace {

bool Load(MHTTPReplyHead& head, MStream& stream) {
    try {
        head.Load(stream);
        return true;
    } catch (const MException& exception) {
        if (exception.GetCode() != MExceptionHTTP || head.GetStatus() != -1) __builtin_trap();
        return false;
    }
}

void CheckFields(const MHTTPReplyHead& head) {
    const MHTTPFieldList& fields = head.GetFields();
    for (int32_t i = 0; i < fields.GetCount(); ++i) {
        const MString* found = head.FindField(fields[i].name);
        if (!found) __builtin_trap();
        if (i > 0 && fields[i].name.CompareNoCase(fields[i - 1].name) < 0) __builtin_trap();
    }
}

void CheckLocation(const MHTTPReplyHead& head) {
    const MString* location = head.FindField("Location");
    if (!location) return;
    MString host;
    MString path;
    uint16_t port = 0;
    MHTTPStream::ParseUrl(*location, host, path, port);
    if (port == 0 || !path.StartsWith("/") || host.FindChar('/') != MString::NotFound) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    MMemoryStream stream(data, static_cast<int32_t>(size));
    MHTTPReplyHead head;
    const bool isTaken = Load(head, stream);
    if (stream.GetPosition() > MHTTPReplyHead::MaximumSize) __builtin_trap();
    if (!isTaken) return 0;
    if (head.GetStatus() < 0 || head.GetStatus() > 999 || head.GetContentLength() < 0) __builtin_trap();
    const auto end = static_cast<size_t>(stream.GetPosition());
    if (end < size && data[end - 1] != '\n' && data[end - 1] != 0) __builtin_trap();
    CheckFields(head);
    CheckLocation(head);
    return 0;
}
