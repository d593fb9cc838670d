#include "streams/hashes/MMD5Text.h"

#include "foundation/base/MBuffer.h"
#include "streams/basic/MStdFileStream.h"
#include "streams/hashes/MMD5Stream.h"

MString MMD5OfBlock(const void* block, int32_t size) {
    MMD5Stream hash;
    hash.Write(block, size);
    hash.Finish();
    return hash.GetDigestText();
}

MString MMD5OfStream(MStream& stream, const std::function<void(int64_t)>& progress) {
    constexpr int32_t PieceSize = 0x100000;
    MMD5Stream hash;
    MBuffer piece(PieceSize);
    int64_t done = 0;
    int32_t count;
    while ((count = stream.Read(piece.EditBlock(), PieceSize)) > 0) {
        hash.Write(piece.GetBlock(), count);
        done += count;
        if (progress) progress(done);
    }
    hash.Finish();
    return hash.GetDigestText();
}

MString MMD5OfFile(const MString& path) {
    MStdFileStream file;
    file.Open(path, MOpenRead);
    return MMD5OfStream(file);
}
