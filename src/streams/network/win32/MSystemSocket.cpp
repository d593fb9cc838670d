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
    return static_cast<MSystemSocket>(socket);
}

void MCloseSocket(MSystemSocket socket) {
    closesocket(ToHandle(socket));
}

bool MConnectSocket(MSystemSocket socket, uint32_t address, uint16_t port) {
    sockaddr_in target{};
    target.sin_family = AF_INET;
    target.sin_addr.s_addr = address;
    target.sin_port = htons(port);
    return connect(ToHandle(socket), reinterpret_cast<const sockaddr*>(&target), sizeof(target)) == 0;
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
