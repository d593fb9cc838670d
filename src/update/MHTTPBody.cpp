#include "update/MHTTPBody.h"

#include "foundation/base/MRaise.h"

#include <algorithm>
#include <array>

namespace {

/// A length of 0 may be one that the head announces, or none.
bool HasLength(const MHTTPStream& reply) {
    return std::ranges::any_of(reply.GetReplyHeaders(),
                               [](const MHTTPField& field) { return field.name == "Content-length"; });
}

}  // namespace

int64_t MReadHTTPBody(MHTTPStream& reply, MStream& target, int64_t limit) {
    std::array<char, 1024> piece;
    const int64_t length = HasLength(reply) ? reply.GetSize() : INT64_MAX;
    int64_t total = 0;
    while (total < length) {
        const int64_t wanted = std::min<int64_t>(piece.size(), length - total);
        const int32_t count = reply.Read(piece.data(), static_cast<int32_t>(wanted));
        if (count <= 0) break;
        total += count;
        if (total > limit) MRaise(MExceptionGeneral, "The server has sent more than {0} bytes.", limit);
        target.Write(piece.data(), count);
    }
    return total;
}
