#pragma once

#include "builder/compression/MPieceCodec.h"

#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <thread>

/// Pieces that threads compress, given back in the order in which they came. The thread that owns the pool
/// is one of them: it works whenever it waits.
class MPiecePool {
public:
    /// The codec outlives the pool. `threads` counts the owner's.
    MPiecePool(const MPieceCodec& codec, int32_t threads);
    MPiecePool(const MPiecePool&) = delete;
    MPiecePool& operator=(const MPiecePool&) = delete;
    /// Drops what nobody has begun, and waits for the rest.
    ~MPiecePool();

    /// Whether so many pieces are there that one should be taken before the next is added: memory stays
    /// in bounds that way, and nobody runs out of work.
    [[nodiscard]] bool IsFull() const { return slots.size() >= capacity; }
    [[nodiscard]] bool IsEmpty() const { return slots.empty(); }
    void Add(MPiece piece);
    /// Waits for the oldest piece. Raises what compressing it raised.
    [[nodiscard]] MPiece TakeOldest();

private:
    struct Slot {
        MPiece piece;
        std::exception_ptr failure;
        bool isDone = false;
    };
    using Lock = std::unique_lock<std::mutex>;

    void Work();
    void ProcessNext(Lock& lock);
    [[nodiscard]] bool IsWorkWaiting() const { return begunCount < slots.size(); }

    const MPieceCodec& codec;
    size_t capacity;
    /// The oldest in front. Only the owner adds and removes; a slot stays where it is meanwhile.
    std::deque<Slot> slots;
    /// How many, from the front, somebody works on or has worked on.
    size_t begunCount = 0;
    bool isStopping = false;
    std::mutex mutex;
    std::condition_variable workCame;
    std::condition_variable pieceDone;
    std::vector<std::thread> workers;
};
