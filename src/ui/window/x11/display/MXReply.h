#pragma once

#include <cstdlib>
#include <memory>

struct MXFree {
    void operator()(void* block) const { std::free(block); }
};

/// Owns what xcb gives to be freed: a reply, an event or an error. Null where there is none, as after the
/// death of the server.
template <class T>
using MXReply = std::unique_ptr<T, MXFree>;
