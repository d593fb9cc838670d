#pragma once

#include "streams/network/MSystemSocket.h"

/// The answering side of TCP, for the servers of tests.

/// A socket that listens on a free port of the loopback interface. Raises "Could not listen." (0).
[[nodiscard]] MSystemSocket MListenOnLoopback(uint16_t& port);
/// Waits for a connection. What is sent on it goes out at once. `MNoSocket` on failure.
[[nodiscard]] MSystemSocket MAcceptConnection(MSystemSocket listener);
/// Closes a connection so that the other side sees it break.
void MResetConnection(MSystemSocket socket);
