#include "builder/compression/MPieceCutter.h"

#include "foundation/base/MRaise.h"

#include <algorithm>

namespace {

constexpr int32_t AreaSize = 1 << 18;

}  // namespace

MPieceCutter::MPieceCutter(MStream& source, int64_t size, const MString& name, const MPieceCodec& codec)
    : source(source), name(name), codec(codec), unread(size) {
    area.resize(static_cast<size_t>(std::clamp<int64_t>(size, 1, AreaSize)));
}

bool MPieceCutter::Next(MPiece& piece) {
    if (isFinished) return false;
    piece = MPiece();
    piece.isFirst = !isStarted;
    isStarted = true;
    AddDictionary(piece);

    const std::unique_ptr<MPieceMeter> meter = codec.MakeMeter();
    size_t taken = 0;
    do {
        if (window.empty()) FillWindow();
        taken = meter->Take(window);
        piece.plain.insert(piece.plain.end(), window.begin(), window.begin() + static_cast<ptrdiff_t>(taken));
        window = window.subspan(taken);
    } while (window.empty() && unread > 0);

    isFinished = window.empty() && unread == 0;
    piece.isLast = isFinished;
    if (isFinished)
        CheckEnd();
    else
        KeepDictionary(piece);
    return true;
}

void MPieceCutter::AddDictionary(MPiece& piece) const {
    piece.plain = dictionary;
    piece.dictionarySize = static_cast<uint32_t>(dictionary.size());
}

void MPieceCutter::KeepDictionary(const MPiece& piece) {
    const size_t size = std::min<size_t>(codec.GetDictionarySize(), piece.plain.size());
    dictionary.assign(piece.plain.end() - static_cast<ptrdiff_t>(size), piece.plain.end());
}

void MPieceCutter::FillWindow() {
    const auto wanted = static_cast<int32_t>(std::min<int64_t>(unread, static_cast<int64_t>(area.size())));
    if (source.Read(area.data(), wanted) != wanted) RaiseChanged();
    unread -= wanted;
    window = std::span(area.data(), static_cast<size_t>(wanted));
}

void MPieceCutter::CheckEnd() {
    uint8_t beyond;
    if (source.Read(&beyond, 1) > 0) RaiseChanged();
}

void MPieceCutter::RaiseChanged() const {
    MRaise(MExceptionGeneral,
           "\"{0}\" changed while it was being packed. Pack again when nothing writes to it.", name);
}
