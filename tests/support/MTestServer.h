#pragma once

#include "foundation/base/MRaise.h"
#include "streams/network/MSystemSocket.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

/// What a server of a test answers: these bytes, and nothing is added to them. Then it closes the connection,
/// so a body that is shorter than it promises is one of a server that closes early, and an empty reply one of
/// a server that hangs up.
struct MTestReply {
    MTestReply(std::string bytes) : bytes(std::move(bytes)) {}
    MTestReply(const char* bytes) : bytes(bytes) {}

    std::string bytes;
    size_t pieceSize = INT32_MAX;  ///< how many bytes go out at once
    bool isReset = false;          ///< breaks the connection in place of closing it
    bool isLeftOpen = false;       ///< waits for the other side to hang up first
};

/// A reply of status 200 that promises what it holds.
[[nodiscard]] MTestReply MTestBody(const std::string& body);

/// A server of HTTP on a free port of the loopback interface, which takes one connection after the other,
/// each for one request, in a thread of its own. Connections must have ended before the server does.
class MTestServer {
public:
    /// Gets the bytes of a whole request, in the server's thread.
    using Handler = std::function<MTestReply(const std::string& request)>;

    /// Raises as `MListenOnLoopback` does.
    explicit MTestServer(Handler handler);
    MTestServer(const MTestServer&) = delete;
    MTestServer& operator=(const MTestServer&) = delete;
    ~MTestServer();

    [[nodiscard]] uint16_t GetPort() const { return port; }
    /// "http://127.0.0.1:", the port, and the path, which begins with "/".
    [[nodiscard]] MString GetURL(const MString& path) const {
        return MFormat("http://127.0.0.1:{0}{1}", int32_t{port}, path);
    }
    /// The requests so far, in the order in which they came.
    [[nodiscard]] std::vector<std::string> GetRequests() const {
        const std::lock_guard guard(lock);
        return requests;
    }

    /// The path of a request, with its query.
    [[nodiscard]] static std::string GetPath(const std::string& request) {
        const size_t begin = request.find(' ') + 1;
        return request.substr(begin, request.find(' ', begin) - begin);
    }

private:
    void Serve(MSystemSocket connection);

    Handler handler;
    uint16_t port = 0;
    MSystemSocket listener;
    std::atomic<bool> isEnding = false;
    mutable std::mutex lock;
    std::vector<std::string> requests;
    std::thread thread;
};
