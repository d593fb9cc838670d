#pragma once

#include "streams/network/MSystemSocket.h"

#include <string>
#include <thread>

/// Sends one file to whoever asks by HTTP, at the least cost: the system itself moves its bytes.
class MFileServer {
public:
    /// Answers one request after the other on a free port of the loopback interface.
    explicit MFileServer(const MString& path);
    MFileServer(const MFileServer&) = delete;
    MFileServer& operator=(const MFileServer&) = delete;
    ~MFileServer();

    [[nodiscard]] std::string GetURL() const;

private:
    void Run() const;
    void Serve(MSystemSocket connection) const;

    int file;
    int64_t size;
    uint16_t port = 0;
    MSystemSocket listener;
    std::thread thread;
};
