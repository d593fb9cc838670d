#pragma once

#include "streams/network/MSystemSocket.h"

#include <string>
#include <thread>

/// Sends one file to whoever asks by HTTP, at the least cost: the system itself moves its bytes.
class MFileServer {
public:
    /// Answers one request after the other on a free port of the loopback interface. Whoever asks an update server
    /// for its index gets `index`.
    explicit MFileServer(const MString& path, std::string index = std::string());
    MFileServer(const MFileServer&) = delete;
    MFileServer& operator=(const MFileServer&) = delete;
    ~MFileServer();

    [[nodiscard]] std::string GetURL() const;

private:
    void Run() const;
    void Serve(MSystemSocket connection) const;

    int file;
    std::string index;
    int64_t size;
    uint16_t port = 0;
    MSystemSocket listener;
    std::thread thread;
};
