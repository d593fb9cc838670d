// Usage: http-get URL [REDIRECTIONS [NAME=VALUE...]]
//
// Fetches an address and prints the status of the reply, the size it promises, the size that came and its
// MD5, a line each; or the code and text of a failure. With fields it sends a form. Follows no redirections
// unless told.

#include "foundation/base/MRaise.h"
#include "foundation/module/MPlatform.h"
#include "foundation/text/MNumberText.h"
#include "streams/hashes/MMD5Stream.h"
#include "streams/network/MHTTPStream.h"

#include <algorithm>
#include <cstdio>
#include <span>

namespace {

using Arguments = std::span<const char* const>;

constexpr int32_t PieceSize = 1 << 16;

void Print(const MString& line) {
    std::puts(line.ToUTF8().Get());
}

MHTTPFieldList ParseFields(Arguments arguments) {
    MHTTPFieldList fields;
    for (const MString argument : arguments) {
        const int32_t sign = argument.FindChar('=');
        fields.Add({argument.Substring(0, sign), argument.Substring(sign + 1)});
    }
    return fields;
}

void Prepare(MHTTPStream& stream, const MString& url, const MHTTPFieldList& fields) {
    if (fields.IsEmpty()) return stream.Get(url);
    MString host;
    MString path;
    uint16_t port;
    MHTTPStream::ParseUrl(url, host, path, port);
    stream.Post(host, path, fields, port);
}

void ReadBody(MHTTPStream& stream) {
    int64_t total = 0;
    MMD5Stream digest;
    MBuffer piece(PieceSize);
    while (const int32_t count = std::max(stream.Read(piece.EditBlock(), PieceSize), 0)) {
        digest.Write(piece.GetBlock(), count);
        total += count;
    }
    digest.Finish();
    Print(MFormat("promised {0}", stream.GetSize()));
    Print(MFormat("received {0}", total));
    Print("md5 " + digest.GetDigestText().ToLower());
}

void Fetch(Arguments arguments) {
    MHTTPStream stream;
    Prepare(stream, arguments[0], ParseFields(arguments.subspan(std::min<size_t>(arguments.size(), 2))));
    (void)stream.Send(arguments.size() > 1 ? MParseInt32(arguments[1]) : 0);
    Print(MFormat("status {0} {1}", stream.GetStatus(), stream.GetStatusText()));
    ReadBody(stream);
}

}  // namespace

int main(int count, char** words) {
    const Arguments arguments(words + 1, static_cast<size_t>(count - 1));
    if (arguments.empty()) return 2;
    MPlatform::StartSubsystems();
    int exitCode = 0;
    try {
        Fetch(arguments);
    } catch (const MException& exception) {
        Print(MFormat("failure {0} {1}", exception.GetCode(), exception.GetMessage()));
        exitCode = 1;
    }
    MPlatform::StopSubsystems();
    return exitCode;
}
