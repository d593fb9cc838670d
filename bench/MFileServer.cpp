#include "bench/MFileServer.h"

#include "foundation/base/MException.h"
#include "foundation/files/posix/MNativePath.h"
#include "tests/support/MTestListener.h"

#include <fcntl.h>
#include <sys/sendfile.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Curl ends its lines with two characters, we with one.
std::string ReadRequest(MSystemSocket connection) {
    std::string request;
    char piece[1024];
    int32_t count = 1;
    while (count > 0 && !request.ends_with("\n\n") && !request.ends_with("\r\n\r\n")) {
        count = MReceiveFromSocket(connection, piece, sizeof(piece));
        if (count > 0) request.append(piece, static_cast<size_t>(count));
    }
    return request;
}

}  // namespace

MFileServer::MFileServer(const MString& path, std::string index)
    : file(open(MNativePath(path).c_str(), O_RDONLY | O_CLOEXEC)),
      index(std::move(index)),
      listener(MListenOnLoopback(port)) {
    struct stat status;
    if (fstat(file, &status) != 0) MRaise(MExceptionGeneral, "The file to serve cannot be read.");
    size = status.st_size;
    thread = std::thread([this] { Run(); });
}

MFileServer::~MFileServer() {
    // On Linux this ends the waiting for a connection.
    shutdown(static_cast<int>(listener), SHUT_RDWR);
    thread.join();
    MCloseSocket(listener);
    close(file);
}

std::string MFileServer::GetURL() const {
    return "http://127.0.0.1:" + std::to_string(port) + "/";
}

void MFileServer::Run() const {
    for (;;) {
        const MSystemSocket connection = MAcceptConnection(listener);
        if (connection == MNoSocket) return;
        Serve(connection);
        MCloseSocket(connection);
    }
}

void MFileServer::Serve(MSystemSocket connection) const {
    const bool isIndex = ReadRequest(connection).find("op=getindex") != std::string::npos;
    const int64_t length = isIndex ? std::ssize(index) : size;
    std::string head = "HTTP/1.0 200 OK\r\nContent-Length: " + std::to_string(length) + "\r\n\r\n";
    if (isIndex) head += index;
    (void)MSendToSocket(connection, head.data(), static_cast<int32_t>(head.size()));
    off_t offset = isIndex ? size : 0;
    while (offset < size &&
           sendfile(static_cast<int>(connection), file, &offset, static_cast<size_t>(size - offset)) > 0) {}
}
