#include "payload/MPayloadIndex.h"

#include "foundation/base/MException.h"
#include "payload/MPayloadFormat.h"
#include "streams/compression/MBZIPStream.h"
#include "streams/compression/MZLibStream.h"

using namespace MPayloadFormat;

namespace {

/// Copies pieces until one comes short, or until `isComplete` says that there are no more.
template <class Question>
void CopyIndex(MStream& source, MMemoryStream& text, Question isComplete) {
    MBuffer piece(0x10000);
    int32_t count;
    do {
        count = source.Read(piece.EditBlock(), piece.GetSize());
        if (text.GetSize() + count > MaximumIndexTextSize)
            MRaise(MExceptionStreamError, "Invalid large resource library format.");
        text.Write(piece.GetBlock(), count);
    } while (count == piece.GetSize() && !isComplete());
}

}  // namespace

std::unique_ptr<MStream> MOpenDecompressor(MStream& source, uint32_t flags) {
    if (flags & UseBzip2) {
        auto reader = std::make_unique<MBZIPStream>();
        reader->Open(&source);
        return reader;
    }
    auto reader = std::make_unique<MZLibStream>();
    reader->Open(&source, false);
    return reader;
}

void MReadPayloadIndex(MStream& stored, uint32_t flags, MMemoryStream& text) {
    if (flags & IndexCompressed && !(flags & UseBzip2)) {
        // Beyond its end a zlib stream raises, and the end may lie just behind a piece.
        MZLibStream reader;
        reader.Open(&stored, false);
        CopyIndex(reader, text, [&reader] { return reader.IsComplete(); });
    } else if (flags & IndexCompressed) {
        CopyIndex(*MOpenDecompressor(stored, flags), text, [] { return false; });
    } else {
        CopyIndex(stored, text, [] { return false; });
    }
    text.Rewind();
}
