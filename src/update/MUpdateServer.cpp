#include "update/MUpdateServer.h"

#include "foundation/MProductConstants.h"
#include "foundation/base/MRaise.h"
#include "foundation/xml/MXMLItem.h"
#include "streams/basic/MDispatchStream.h"
#include "update/MHTTPBody.h"

namespace {

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

[[noreturn]] void RaiseRefused() {
    MRaise(MExceptionGeneral, "Could not download a file from the update server.");
}

}  // namespace

MUpdateServer::MUpdateServer(const MXMLItem& state) {
    const MString address = state.GetAttribute("updateaddress", "");
    if (address.IsEmpty()) {
        host = MProductUpdateHost;
        basePath = MFormat("/downloadupdate/?name={0}&", state.GetAttribute("id"));
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
    if (!Send(request, host, basePath + query, port)) RaiseRefused();
    ShownStream target(stream, bar, request.GetSize());
    if (MReadHTTPBody(request, target, limit) < request.GetSize()) RaiseRefused();
}
