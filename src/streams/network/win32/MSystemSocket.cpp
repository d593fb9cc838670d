#include "streams/network/MSystemSocket.h"

#include "foundation/win32/MWindowsHeader.h"

#include <winsock2.h>
#include <ws2tcpip.h>

namespace {

SOCKET ToHandle(MSystemSocket socket) {
    return static_cast<SOCKET>(socket);
}

int32_t ToResult(int count) {
    if (count != SOCKET_ERROR) return count;
    return WSAGetLastError() == WSAEWOULDBLOCK ? MSocketWouldBlock : MSocketError;
}

}  // namespace

bool MFindLocalHostName(MString& name) {
    char text[256];
    if (gethostname(text, sizeof(text)) != 0) return false;
    name = MString::Copy(text);
    return true;
}

bool MFindLocalHostAddress(const MString& name, uint32_t& address) {
    return MFindHostAddress(name, address);
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
    const PROTOENT* entry = getprotobyname("tcp");
    if (entry) protocol = entry->p_proto;
    return entry != nullptr;
}

MSystemSocket MOpenStreamSocket(int32_t protocol) {
    const SOCKET socket = ::socket(AF_INET, SOCK_STREAM, protocol);
    if (socket == INVALID_SOCKET) return MNoSocket;
    SetHandleInformation(reinterpret_cast<HANDLE>(socket), HANDLE_FLAG_INHERIT, 0);
    const BOOL isAlive = TRUE;
    setsockopt(socket, SOL_SOCKET, SO_KEEPALIVE, reinterpret_cast<const char*>(&isAlive), sizeof(isAlive));
    return static_cast<MSystemSocket>(socket);
}

void MCloseSocket(MSystemSocket socket) {
    closesocket(ToHandle(socket));
}

bool MBeginConnection(MSystemSocket socket, uint32_t address, uint16_t port) {
    sockaddr_in target{};
    target.sin_family = AF_INET;
    target.sin_addr.s_addr = address;
    target.sin_port = htons(port);
    u_long isNonBlocking = 1;
    if (ioctlsocket(ToHandle(socket), FIONBIO, &isNonBlocking) != 0) return false;
    return connect(ToHandle(socket), reinterpret_cast<const sockaddr*>(&target), sizeof(target)) == 0 ||
           WSAGetLastError() == WSAEWOULDBLOCK;
}

bool MEndConnection(MSystemSocket socket) {
    int error = 0;
    int size = sizeof(error);
    if (getsockopt(ToHandle(socket), SOL_SOCKET, SO_ERROR, reinterpret_cast<char*>(&error), &size) != 0)
        return false;
    // Where no error is kept, only a socket that has another side is connected.
    sockaddr_in peer{};
    size = sizeof(peer);
    return error == 0 && getpeername(ToHandle(socket), reinterpret_cast<sockaddr*>(&peer), &size) == 0;
}

bool MWaitForSocket(MSystemSocket socket, MSocketDirection direction, int32_t milliseconds) {
    // WSAPoll of older systems does not tell of a connection that could not be made.
    fd_set waited;
    fd_set failed;
    FD_ZERO(&waited);
    FD_ZERO(&failed);
    FD_SET(ToHandle(socket), &waited);
    FD_SET(ToHandle(socket), &failed);
    timeval time{milliseconds / 1000, milliseconds % 1000 * 1000};
    const bool isReading = direction == MSocketDirection::Reading;
    return select(0, isReading ? &waited : nullptr, isReading ? nullptr : &waited, &failed, &time) != 0;
}

bool MMakeSocketBlocking(MSystemSocket socket) {
    u_long isNonBlocking = 0;
    return ioctlsocket(ToHandle(socket), FIONBIO, &isNonBlocking) == 0;
}

int32_t MSendToSocket(MSystemSocket socket, const void* block, int32_t size) {
    const int count = send(ToHandle(socket), static_cast<const char*>(block), size, 0);
    return count == 0 ? MSocketError : ToResult(count);
}

int32_t MReceiveFromSocket(MSystemSocket socket, void* block, int32_t size) {
    const int count = recv(ToHandle(socket), static_cast<char*>(block), size, 0);
    return count == 0 ? MSocketEnd : ToResult(count);
}
