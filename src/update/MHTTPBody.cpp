#include "update/MHTTPBody.h"

#include "foundation/base/MBuffer.h"
#include "foundation/base/MRaise.h"

int64_t MReadHTTPBody(MHTTPStream& reply, MStream& target, int64_t limit) {
    MBuffer piece(0x10000);
    int64_t total = 0;
    int32_t count;
    while ((count = reply.Read(piece.EditBlock(), piece.GetSize())) > 0) {
        total += count;
        if (total > limit) MRaise(MExceptionGeneral, "The server has sent more than {0} bytes.", limit);
        target.Write(piece.GetBlock(), count);
    }
    return total;
}
