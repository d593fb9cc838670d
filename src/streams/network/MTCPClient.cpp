#include "streams/network/MTCPClient.h"

void MTCPClient::Connect(uint16_t port, const MString& host) {
    CreateSocket();
    GetRemote().Resolve(host);
    GetRemote().SetPort(port);
    ConnectSocket();
}
