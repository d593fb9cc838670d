#include "tests/support/MTestServer.h"

#include "foundation/module/MPlatform.h"
#include "foundation/text/MNumberText.h"
#include "streams/network/MTCPClient.h"
#include "tests/support/MTestListener.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace {

/// Whether a request has come to the end of its head and of the body that this tells.
bool IsWhole(const std::string& request) {
    const size_t headEnd = request.find("\n\n");
    if (headEnd == std::string::npos) return false;
    const std::string field = "\nContent-Length: ";
    const size_t found = request.find(field);
    const size_t bodySize = found < headEnd ? std::strtoul(&request[found + field.size()], nullptr, 10) : 0;
    return request.size() >= headEnd + 2 + bodySize;
}

/// Empty if the other side hangs up before its request is whole.
std::string ReadRequest(MSystemSocket connection) {
    std::string request;
    while (!IsWhole(request)) {
        char piece[4096];
        const int32_t count = MReceiveFromSocket(connection, piece, sizeof(piece));
        if (count <= 0) return {};
        request.append(piece, static_cast<size_t>(count));
    }
    return request;
}

}  // namespace

MTestReply MTestBody(const std::string& body) {
    return "HTTP/1.0 200 OK\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
}

MTestServer::MTestServer(Handler handler) : handler(std::move(handler)) {
    MPlatform::StartSubsystems();
    listener = MListenOnLoopback(port);
    thread = std::thread([this] {
        while (!isEnding) Serve(MAcceptConnection(listener));
    });
}

MTestServer::~MTestServer() {
    isEnding = true;
    // Wakes the thread that waits for a connection.
    MTCPClient().Connect(port, "127.0.0.1");
    thread.join();
    MCloseSocket(listener);
    MPlatform::StopSubsystems();
}

void MTestServer::Serve(MSystemSocket connection) {
    const std::string request = ReadRequest(connection);
    if (request.empty()) return MCloseSocket(connection);
    {
        const std::lock_guard guard(lock);
        requests.push_back(request);
    }
    const MTestReply reply = handler(request);
    for (size_t sent = 0; sent < reply.bytes.size();) {
        const size_t size = std::min(reply.pieceSize, reply.bytes.size() - sent);
        const int32_t count = MSendToSocket(connection, &reply.bytes[sent], static_cast<int32_t>(size));
        if (count <= 0) break;
        sent += static_cast<size_t>(count);
    }
    char byte;
    if (reply.isLeftOpen) (void)MReceiveFromSocket(connection, &byte, 1);
    reply.isReset ? MResetConnection(connection) : MCloseSocket(connection);
}
