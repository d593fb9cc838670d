#include "update/MUpdateServer.h"

#include "foundation/MProductConstants.h"
#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MUnicode.h"
#include "foundation/xml/MXMLItem.h"
#include "streams/basic/MDispatchStream.h"
#include "update/MHTTPBody.h"

#include <chrono>
#include <cstring>

namespace {

constexpr std::chrono::minutes Patience(1);

/// Shows the count of bytes that it hands on.
class ShownStream final : public MDispatchStream {
public:
    ShownStream(MStream& target, MProgressView* bar, int64_t size)
        : MDispatchStream(&target), bar(bar), size(size) {}

    void Write(const void* block, int32_t count) override {
        MDispatchStream::Write(block, count);
        written += count;
        if (bar) bar->SetProgress(static_cast<double>(size), static_cast<double>(written));
    }

private:
    MProgressView* bar;
    int64_t size;
    int64_t written = 0;
};

bool Send(MHTTPStream& request, const MString& host, const MString& path, uint16_t port) {
    constexpr int32_t RedirectBudget = 5;
    try {
        request.Get(host, path, nullptr, port);
        return request.Send(RedirectBudget);
    } catch (const MException&) {
        MRaise(MExceptionGeneral,
               "Could not connect to the update server. The computer probably does not have internet access. "
               "Please visit {0} for potential updates.",
               MProductWebAddress);
    }
}

/// A text as the value of a query: its bytes in UTF-8, of which those that mean something there have the percent form
/// (RFC 3986).
MString EncodeValue(const MString& text) {
    MString encoded;
    for (const char byte : MEncodeUTF8Exact(text)) {
        const MChar character(byte);
        if (static_cast<uint8_t>(byte) < 0x80 && (character.IsAlphanumeric() || std::strchr("-._~", byte))) {
            encoded.Append(character);
            continue;
        }
        encoded.Append('%');
        encoded.Append(MChar::FromHexDigit(static_cast<uint8_t>(byte) >> 4));
        encoded.Append(MChar::FromHexDigit(static_cast<uint8_t>(byte)));
    }
    return encoded;
}

MString EncodeUpdateName(const MString& fileName) {
    const MString extension = MFile::GetExtension(fileName);
    const int32_t dropped = extension.IsEmpty() ? 0 : extension.GetLength() + 1;
    return EncodeValue(fileName.Substring(0, fileName.GetLength() - dropped));
}

[[noreturn]] void RaiseRefused() {
    MRaise(MExceptionGeneral, "Could not download a file from the update server.");
}

}  // namespace

MUpdateServer::MUpdateServer(const MXMLItem& state) {
    const MString address = state.GetAttribute("updateaddress", "");
    if (address.IsEmpty()) {
        host = MProductUpdateHost;
        basePath = MFormat("/downloadupdate/?name={0}&", EncodeValue(state.GetAttribute("id")));
        return;
    }
    const int32_t slash = address.FindChar('/');
    MString root;
    MHTTPStream::ParseUrl(slash < 0 ? address : address.Substring(0, slash), host, root, port);
    if (slash >= 0) basePath = address.Substring(slash);
    if (!basePath.EndsWith("/")) basePath.Append("/");
    basePath.Append("?");
}

void MUpdateServer::FetchFile(const MString& query, MStream& stream, MProgressView* bar,
                              int64_t limit) const {
    if (bar) bar->SetProgress(1, 0);
    MHTTPStream request;
    request.SetWatcher([](std::chrono::steady_clock::duration quiet) { return quiet < Patience; });
    if (!Send(request, host, basePath + query, port)) RaiseRefused();
    ShownStream target(stream, bar, request.GetSize());
    try {
        if (MReadHTTPBody(request, target, limit) >= request.GetSize()) return;
    } catch (const MException& exception) {
        if (exception.GetCode() != MExceptionNetwork) throw;
    }
    RaiseRefused();
}

void MUpdateServer::FetchUpdate(const MString& fileName, MStream& stream, MProgressView* bar) const {
    FetchFile("op=getupdate&updatename=" + EncodeUpdateName(fileName), stream, bar);
}

MString MUpdateServer::GetSignatureQuery(const MString& fileName) {
    return "op=getupdatesignature&updatename=" + EncodeUpdateName(fileName);
}
