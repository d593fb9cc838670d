#include "builder/compression/MParallelCompressor.h"

#include "builder/compression/MPieceCutter.h"

#include <utility>

MParallelCompressor::MParallelCompressor(const MPieceCodec& codec, int32_t threads, MStream& target,
                                         Progress progress)
    : codec(codec),
      target(target),
      progress(std::move(progress)),
      base(target.GetPosition()),
      joiner(codec.MakeJoiner()),
      pool(codec, threads) {}

void MParallelCompressor::AddItem(MStream& source, int64_t size, const MString& name) {
    MPieceCutter cutter(source, size, name, codec);
    MPiece piece;
    while (cutter.Next(piece)) {
        if (pool.IsFull()) WriteOldest();
        pool.Add(std::move(piece));
    }
}

void MParallelCompressor::Finish() {
    while (!pool.IsEmpty()) WriteOldest();
}

void MParallelCompressor::WriteOldest() {
    const MPiece piece = pool.TakeOldest();
    if (piece.isFirst) starts.push_back(target.GetPosition() - base);
    joiner->Add(piece, target);
    if (progress) progress(piece.GetOwnSize());
}
