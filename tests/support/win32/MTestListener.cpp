#include "tests/support/MTestListener.h"

#include "foundation/base/MException.h"
#include "foundation/win32/MWindowsHeader.h"

#include <winsock2.h>

MSystemSocket MListenOnLoopback(uint16_t& port) {
    const SOCKET listener = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto* const place = reinterpret_cast<sockaddr*>(&address);
    int size = sizeof(address);
    if (bind(listener, place, size) != 0 || listen(listener, SOMAXCONN) != 0 ||
        getsockname(listener, place, &size) != 0)
        MRaise(MExceptionGeneral, "Could not listen.");
    port = ntohs(address.sin_port);
    return static_cast<MSystemSocket>(listener);
}

MSystemSocket MAcceptConnection(MSystemSocket listener) {
    const SOCKET connection = accept(static_cast<SOCKET>(listener), nullptr, nullptr);
    if (connection == INVALID_SOCKET) return MNoSocket;
    const char isImmediate = 1;
    setsockopt(connection, IPPROTO_TCP, TCP_NODELAY, &isImmediate, sizeof(isImmediate));
    return static_cast<MSystemSocket>(connection);
}

void MResetConnection(MSystemSocket socket) {
    const linger nothing{1, 0};
    setsockopt(static_cast<SOCKET>(socket), SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&nothing),
               sizeof(nothing));
    MCloseSocket(socket);
}
