#pragma once

#include "streams/network/MHTTPStream.h"

/// Copies what is left of a reply to a stream, in pieces of 1,024 bytes, and gives the count of bytes. Ends
/// at the length that the head announces, whatever the server sends behind it and however long it keeps the
/// connection. Raises "The server has sent more than {0} bytes." (0) beyond a limit, so that no server can
/// fill memory or disk.
int64_t MReadHTTPBody(MHTTPStream& reply, MStream& target, int64_t limit);
