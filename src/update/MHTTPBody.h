#pragma once

#include "streams/network/MHTTPStream.h"

/// Copies what is left of a reply to a stream, and gives the count of bytes. Raises "The server has sent more
/// than {0} bytes." (0) beyond a limit, so that no server can fill memory or disk.
int64_t MReadHTTPBody(MHTTPStream& reply, MStream& target, int64_t limit);
