#include "streams/network/MSystemSocket.h"

#include <arpa/inet.h>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <memory>
#include <netdb.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

int ToDescriptor(MSystemSocket socket) {
    return static_cast<int>(socket);
}

/// Repeats a call as long as a signal interrupts it.
template <class Call>
auto CallUninterrupted(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR) result = call();
    return result;
}

int32_t ToResult(ssize_t count) {
    if (count >= 0) return static_cast<int32_t>(count);
    return errno == EAGAIN || errno == EWOULDBLOCK ? MSocketWouldBlock : MSocketError;
}

}  // namespace

bool MFindLocalHostName(MString& name) {
    char text[HOST_NAME_MAX + 1];
    if (gethostname(text, sizeof(text)) != 0) return false;
    name = MString::Copy(text);
    return true;
}

bool MFindLocalHostAddress(const MString& name, uint32_t& address) {
    // A machine without a network need not be able to look up its own name.
    if (!MFindHostAddress(name, address)) address = htonl(INADDR_LOOPBACK);
    return true;
}

bool MFindHostAddress(const MString& name, uint32_t& address) {
    addrinfo wanted{};
    wanted.ai_family = AF_INET;
    wanted.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (getaddrinfo(name.ToNarrow().Get(), nullptr, &wanted, &found) != 0 || !found) return false;
    address = reinterpret_cast<const sockaddr_in*>(found->ai_addr)->sin_addr.s_addr;
    freeaddrinfo(found);
    return true;
}

bool MFindTCPProtocol(int32_t& protocol) {
    // The number is assigned once and for all; a small system may lack the file that tells it.
    protocol = IPPROTO_TCP;
    return true;
}

MSystemSocket MOpenStreamSocket(int32_t protocol) {
    const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, protocol);
    if (socket < 0) return MNoSocket;
    const int isAlive = 1;
    setsockopt(socket, SOL_SOCKET, SO_KEEPALIVE, &isAlive, sizeof(isAlive));
    return socket;
}

void MCloseSocket(MSystemSocket socket) {
    close(ToDescriptor(socket));
}

bool MBeginConnection(MSystemSocket socket, uint32_t address, uint16_t port) {
    sockaddr_in target{};
    target.sin_family = AF_INET;
    target.sin_addr.s_addr = address;
    target.sin_port = htons(port);
    const int descriptor = ToDescriptor(socket);
    if (fcntl(descriptor, F_SETFL, fcntl(descriptor, F_GETFL) | O_NONBLOCK) != 0) return false;
    // A signal does not end the making of the connection.
    return connect(descriptor, reinterpret_cast<const sockaddr*>(&target), sizeof(target)) == 0 ||
           errno == EINPROGRESS || errno == EINTR;
}

bool MEndConnection(MSystemSocket socket) {
    int error = 0;
    socklen_t size = sizeof(error);
    return getsockopt(ToDescriptor(socket), SOL_SOCKET, SO_ERROR, &error, &size) == 0 && error == 0;
}

bool MWaitForSocket(MSystemSocket socket, MSocketDirection direction, int32_t milliseconds) {
    const short event = direction == MSocketDirection::Reading ? POLLIN : POLLOUT;
    pollfd waited{ToDescriptor(socket), event, 0};
    const int count = poll(&waited, 1, milliseconds);
    return count > 0 || (count < 0 && errno != EINTR);
}

bool MMakeSocketBlocking(MSystemSocket socket) {
    const int descriptor = ToDescriptor(socket);
    const int flags = fcntl(descriptor, F_GETFL);
    return flags >= 0 && fcntl(descriptor, F_SETFL, flags & ~O_NONBLOCK) == 0;
}

int32_t MSendToSocket(MSystemSocket socket, const void* block, int32_t size) {
    return ToResult(CallUninterrupted(
        [&] { return send(ToDescriptor(socket), block, static_cast<size_t>(size), MSG_NOSIGNAL); }));
}

int32_t MReceiveFromSocket(MSystemSocket socket, void* block, int32_t size) {
    const ssize_t count =
        CallUninterrupted([&] { return recv(ToDescriptor(socket), block, static_cast<size_t>(size), 0); });
    return count == 0 ? MSocketEnd : ToResult(count);
}
