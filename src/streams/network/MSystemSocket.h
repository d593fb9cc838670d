#pragma once

#include "foundation/text/MString.h"

#include <cstdint>

/// What the streams of the network need of the system's sockets. Addresses are of IPv4 and in network order.

/// A handle of the system.
using MSystemSocket = intptr_t;

inline constexpr MSystemSocket MNoSocket = -1;

/// The name of this machine. False if the system gives none.
[[nodiscard]] bool MFindLocalHostName(MString& name);
/// False if this machine's own name has no address.
[[nodiscard]] bool MFindLocalHostAddress(const MString& name, uint32_t& address);
/// Asks the resolver of the system, for as long as that takes. False if the name has no address.
[[nodiscard]] bool MFindHostAddress(const MString& name, uint32_t& address);
/// False if the system does not know TCP.
[[nodiscard]] bool MFindTCPProtocol(int32_t& protocol);

/// A stream socket that programs which this one starts do not inherit, and that notices after some hours of
/// silence when the other side is gone; `MNoSocket` on failure.
[[nodiscard]] MSystemSocket MOpenStreamSocket(int32_t protocol);
void MCloseSocket(MSystemSocket socket);

/// Begins to connect a socket, whose calls do not wait from there on. The port is in the order of the
/// processor. False if it failed at once; what became of it is known when the socket is ready for writing.
[[nodiscard]] bool MBeginConnection(MSystemSocket socket, uint32_t address, uint16_t port);
/// Whether the connection has been made.
[[nodiscard]] bool MEndConnection(MSystemSocket socket);

enum class MSocketDirection { Reading, Writing };

/// Waits at most so long until a call in that direction need not wait, or would fail. Also ends early, at a
/// signal. False if it is still not so.
[[nodiscard]] bool MWaitForSocket(MSystemSocket socket, MSocketDirection direction, int32_t milliseconds);
/// Lets calls wait. False on failure.
bool MMakeSocketBlocking(MSystemSocket socket);

/// What became of a call that sends or receives, when it has moved no bytes.
enum MSocketResult : int32_t {
    MSocketWouldBlock = 0,
    MSocketError = -1,
    MSocketEnd = -2,  ///< the other side has ended its sending
};

/// Give the number of bytes that were moved, from 1 to `size`, which is above 0, or one of `MSocketResult`.
[[nodiscard]] int32_t MSendToSocket(MSystemSocket socket, const void* block, int32_t size);
[[nodiscard]] int32_t MReceiveFromSocket(MSystemSocket socket, void* block, int32_t size);
