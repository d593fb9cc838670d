#pragma once

#include "streams/network/MSocketStream.h"

/// The calling side of a TCP connection.
class MTCPClient : public MSocketStream {
public:
    /// Makes a new connection in place of the one of before. Raises what `MSocketStream::CreateSocket`,
    /// `MNetEntity::Resolve` and `MSocketStream::ConnectSocket` raise.
    void Connect(uint16_t port, const MString& host);
};
