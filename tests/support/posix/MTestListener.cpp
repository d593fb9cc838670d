#include "tests/support/MTestListener.h"

#include "foundation/base/MException.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

MSystemSocket MListenOnLoopback(uint16_t& port) {
    const int listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, IPPROTO_TCP);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto* const place = reinterpret_cast<sockaddr*>(&address);
    socklen_t size = sizeof(address);
    if (bind(listener, place, size) != 0 || listen(listener, SOMAXCONN) != 0 ||
        getsockname(listener, place, &size) != 0)
        MRaise(MExceptionGeneral, "Could not listen.");
    port = ntohs(address.sin_port);
    return listener;
}

MSystemSocket MAcceptConnection(MSystemSocket listener) {
    const int connection = accept4(static_cast<int>(listener), nullptr, nullptr, SOCK_CLOEXEC);
    if (connection < 0) return MNoSocket;
    const int isImmediate = 1;
    setsockopt(connection, IPPROTO_TCP, TCP_NODELAY, &isImmediate, sizeof(isImmediate));
    return connection;
}

void MResetConnection(MSystemSocket socket) {
    const linger nothing{1, 0};
    setsockopt(static_cast<int>(socket), SOL_SOCKET, SO_LINGER, &nothing, sizeof(nothing));
    MCloseSocket(socket);
}
