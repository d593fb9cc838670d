#include "builder/compression/MPiecePool.h"

#include <utility>

namespace {

/// Pieces in the pool for each thread: one in work, the others for while the owner is busy itself.
constexpr size_t PiecesPerThread = 3;

}  // namespace

MPiecePool::MPiecePool(const MPieceCodec& codec, int32_t threads)
    : codec(codec), capacity(PiecesPerThread * static_cast<size_t>(threads)) {
    for (int32_t i = 1; i < threads; ++i) workers.emplace_back([this] { Work(); });
}

MPiecePool::~MPiecePool() {
    {
        const Lock lock(mutex);
        isStopping = true;
    }
    workCame.notify_all();
    for (std::thread& worker : workers) worker.join();
}

void MPiecePool::Add(MPiece piece) {
    {
        const Lock lock(mutex);
        slots.push_back({std::move(piece), nullptr, false});
    }
    workCame.notify_one();
}

MPiece MPiecePool::TakeOldest() {
    Lock lock(mutex);
    while (!slots.front().isDone) {
        if (IsWorkWaiting())
            ProcessNext(lock);
        else
            pieceDone.wait(lock);
    }
    Slot slot = std::move(slots.front());
    slots.pop_front();
    --begunCount;
    if (slot.failure) std::rethrow_exception(slot.failure);
    return std::move(slot.piece);
}

void MPiecePool::Work() {
    Lock lock(mutex);
    while (true) {
        workCame.wait(lock, [this] { return isStopping || IsWorkWaiting(); });
        if (isStopping) return;
        ProcessNext(lock);
    }
}

void MPiecePool::ProcessNext(Lock& lock) {
    Slot& slot = slots[begunCount++];
    lock.unlock();
    try {
        codec.Compress(slot.piece);
    } catch (...) {
        slot.failure = std::current_exception();
    }
    lock.lock();
    slot.isDone = true;
    pieceDone.notify_one();
}
