#include "foundation/events/MLock.h"

#include "foundation/events/MERWLock.h"
#include "foundation/events/MEmulatedLockGuard.h"
#include "foundation/events/MLockGuard.h"
#include "foundation/events/MMutex.h"
#include "foundation/events/MSemaphore.h"
#include "tests/support/MTestText.h"

#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

template <class Body>
auto OnOtherThread(Body body) {
    decltype(body()) result{};
    std::thread([&] { result = body(); }).join();
    return result;
}

/// How long a lock that this thread holds keeps another waiting.
milliseconds RefusedAfter(MSynchronizer& lock, int32_t timeout) {
    const auto start = steady_clock::now();
    EXPECT_NE(OnOtherThread([&] { return lock.Lock(timeout); }), 0);
    return std::chrono::duration_cast<milliseconds>(steady_clock::now() - start);
}

template <class Lock>
class OwnedLockTest : public testing::Test {
protected:
    ~OwnedLockTest() noexcept override = default;
    Lock lock;
};

using OwnedLocks = testing::Types<MLock, MMutex>;
TYPED_TEST_SUITE(OwnedLockTest, OwnedLocks);

TYPED_TEST(OwnedLockTest, TheOwnerLocksAgainAndUnlocksAsOftenAndOthersWaitAsLongAsTheySay) {
    const MLockGuard none(nullptr, 0);
    EXPECT_NE(MLock().Lock(-2), 0);
    const auto guarded = [&] { return FailureOf([&] { const MLockGuard guard(&this->lock, 5); }); };
    for (const int32_t timeout : {-1, 0}) ASSERT_EQ(this->lock.Lock(timeout), 0);
    this->lock.Unlock();
    EXPECT_LT(RefusedAfter(this->lock, 0), milliseconds(1000));
    EXPECT_GE(RefusedAfter(this->lock, 30), milliseconds(29));
    EXPECT_EQ(OnOtherThread(guarded), "0: Could not acquire lock.");
    this->lock.Unlock();
    EXPECT_EQ(OnOtherThread(guarded), "none");
}

TYPED_TEST(OwnedLockTest, ThreadsThatHammerLoseNoCount) {
    constexpr int32_t Rounds = 20'000;
    int32_t shared = 0;
    std::vector<std::thread> workers;
    for (int32_t i = 0; i < 4; ++i)
        workers.emplace_back([&] {
            for (int32_t round = 0; round < Rounds; ++round) {
                const MLockGuard guard(&this->lock);
                ++shared;
            }
        });
    for (std::thread& worker : workers) worker.join();
    EXPECT_EQ(shared, 4 * Rounds);
}

TEST(MMutexTest, WhatAnEndedOwnerLeftGoesToTheNext) {
    MMutex mutex;
    ASSERT_EQ(OnOtherThread([&] { return mutex.Lock(-1); }), 0);
    EXPECT_EQ(mutex.Lock(1000), 0);
    mutex.Unlock();
    EXPECT_EQ(mutex.Lock(0), 0);
    mutex.Unlock();
}

TEST(MSemaphoreTest, CountsItsReleasesUnlessItResetsItself) {
    for (const bool resetsItself : {false, true}) {
        MSemaphore semaphore(resetsItself);
        for (const int32_t timeout : {0, 5}) EXPECT_NE(semaphore.Lock(timeout), 0);
        for (int32_t i = 0; i < 2; ++i) semaphore.Unlock();
        EXPECT_EQ(semaphore.Lock(-1), 0);
        EXPECT_EQ(semaphore.Lock(0) == 0, !resetsItself);
        EXPECT_NE(semaphore.Lock(0), 0);
    }
}

/// Enters in `mode` on a thread of its own and stays until it is told to leave.
class Visitor {
public:
    Visitor(MERWLock& lock, int32_t mode)
        : thread([this, &lock, mode] {
              const MEmulatedLockGuard guard(&lock, mode);
              inside = true;
              while (!leaving) std::this_thread::yield();
          }) {}
    ~Visitor() {
        Leave();
        thread.join();
    }

    void Leave() { leaving = true; }

    bool Enters() {
        while (!inside) std::this_thread::yield();
        return true;
    }
    bool StaysOutside() {
        std::this_thread::sleep_for(milliseconds(50));
        return !inside;
    }

private:
    std::atomic<bool> inside = false;
    std::atomic<bool> leaving = false;
    std::thread thread;
};

TEST(MERWLockTest, ReadersGiveWayToAWaitingWriterUnlessTheyAreInside) {
    MERWLock lock;
    ASSERT_EQ(lock.Acquire(MERWLock::Read), 0);
    Visitor writer(lock, MERWLock::Write);
    EXPECT_TRUE(writer.StaysOutside());
    Visitor newReader(lock, MERWLock::Read);
    EXPECT_TRUE(newReader.StaysOutside());
    EXPECT_EQ(lock.Acquire(MERWLock::Read), 0);
    lock.Release(MERWLock::Read);
    EXPECT_TRUE(writer.StaysOutside());
    lock.Release(MERWLock::Read);
    EXPECT_TRUE(writer.Enters());
    EXPECT_TRUE(newReader.StaysOutside());
    writer.Leave();
    EXPECT_TRUE(newReader.Enters());
}

TEST(MERWLockTest, TheOnlyReaderBecomesTheWriterAndAWriterMayRead) {
    MERWLock lock;
    ASSERT_EQ(lock.Acquire(MERWLock::Read), 0);
    for (const int32_t mode : {MERWLock::Write, MERWLock::Write, MERWLock::Read})
        ASSERT_EQ(lock.Acquire(mode), 0);
    Visitor reader(lock, MERWLock::Read);
    for (int32_t i = 0; i < 2; ++i) {
        EXPECT_TRUE(reader.StaysOutside());
        lock.Release(MERWLock::Write);
    }
    EXPECT_TRUE(reader.Enters());
    for (int32_t i = 0; i < 2; ++i) lock.Release(MERWLock::Read);
}

TEST(MERWLockTest, ReadersThatUpgradeAtOnceAreResolvedAndSeeNoHalfAChange) {
    MERWLock lock;
    int64_t halves[2] = {};
    std::atomic<int64_t> torn = 0;
    std::vector<std::thread> workers;
    for (int32_t i = 0; i < 4; ++i)
        workers.emplace_back([&, i] {
            for (int32_t round = 0; round < 2000; ++round) {
                const MEmulatedLockGuard reader(&lock, MERWLock::Read);
                if (halves[0] != halves[1]) ++torn;
                if (i == 0) continue;
                const MEmulatedLockGuard writer(&lock, MERWLock::Write);
                for (int64_t& half : halves) ++half;
            }
        });
    for (std::thread& worker : workers) worker.join();
    EXPECT_EQ(torn, 0);
    EXPECT_EQ(halves[0], 6000);
}

}  // namespace
