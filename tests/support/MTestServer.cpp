#include "tests/support/MTestServer.h"

#include "foundation/base/MRaise.h"
#include "foundation/module/MPlatform.h"
#include "foundation/text/MNumberText.h"
#include "tests/support/MTestListener.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdlib>
#include <utility>

namespace {

const uint32_t Loopback = std::bit_cast<uint32_t>(std::to_array<uint8_t>({127, 0, 0, 1}));

/// How long a request is, as far as that is known from its beginning; 0 as long as its head has not ended.
size_t GetRequestSize(const std::string& request) {
    const size_t headEnd = request.find("\n\n");
    if (headEnd == std::string::npos) return 0;
    const std::string field = "\nContent-Length: ";
    const size_t found = request.find(field);
    const size_t bodySize = found < headEnd ? std::strtoul(&request[found + field.size()], nullptr, 10) : 0;
    return headEnd + 2 + bodySize;
}

/// Empty if the other side hangs up before its request is whole.
std::string ReadRequest(MSystemSocket connection) {
    std::string request;
    while (GetRequestSize(request) == 0 || request.size() < GetRequestSize(request)) {
        char piece[4096];
        const int32_t count = MReceiveFromSocket(connection, piece, sizeof(piece));
        if (count <= 0) return {};
        request.append(piece, static_cast<size_t>(count));
    }
    return request;
}

void SendReply(MSystemSocket connection, const MTestReply& reply) {
    const size_t pieceSize = reply.pieceSize > 0 ? reply.pieceSize : reply.bytes.size();
    size_t sent = 0;
    while (sent < reply.bytes.size()) {
        const size_t size = std::min(pieceSize, reply.bytes.size() - sent);
        const int32_t count = MSendToSocket(connection, &reply.bytes[sent], static_cast<int32_t>(size));
        if (count <= 0) return;
        sent += static_cast<size_t>(count);
    }
}

}  // namespace

MTestReply MTestBody(const std::string& body) {
    return "HTTP/1.0 200 OK\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
}

MTestServer::MTestServer(Handler handler) : handler(std::move(handler)) {
    MPlatform::StartSubsystems();
    listener = MListenOnLoopback(port);
    thread = std::thread([this] { Run(); });
}

MTestServer::~MTestServer() {
    isEnding = true;
    // Wakes the thread that waits for a connection.
    int32_t protocol = 0;
    const MSystemSocket caller = MFindTCPProtocol(protocol) ? MOpenStreamSocket(protocol) : MNoSocket;
    (void)MConnectSocket(caller, Loopback, port);
    MCloseSocket(caller);
    thread.join();
    MCloseSocket(listener);
    MPlatform::StopSubsystems();
}

void MTestServer::Run() {
    while (!isEnding) Serve(MAcceptConnection(listener));
}

MString MTestServer::GetURL(const MString& path) const {
    return MFormat("http://127.0.0.1:{0}{1}", int32_t{port}, path);
}

std::vector<std::string> MTestServer::GetRequests() const {
    const std::lock_guard guard(lock);
    return requests;
}

std::string MTestServer::GetPath(const std::string& request) {
    const size_t begin = request.find(' ') + 1;
    return request.substr(begin, request.find(' ', begin) - begin);
}

void MTestServer::Serve(MSystemSocket connection) {
    const std::string request = ReadRequest(connection);
    if (request.empty()) return MCloseSocket(connection);
    {
        const std::lock_guard guard(lock);
        requests.push_back(request);
    }
    const MTestReply reply = handler(request);
    SendReply(connection, reply);
    if (reply.isReset)
        MResetConnection(connection);
    else
        MCloseSocket(connection);
}
