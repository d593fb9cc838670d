#include "foundation/events/MLock.h"

#include "foundation/base/MException.h"
#include "foundation/events/MLockGuard.h"
#include "foundation/events/MMutex.h"
#include "foundation/events/MSemaphore.h"
#include "foundation/events/MThreadLocal.h"
#include "tests/support/MTestText.h"

#include <chrono>
#include <gtest/gtest.h>
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

TYPED_TEST(OwnedLockTest, TheOwnerLocksAgainAndUnlocksAsOften) {
    ASSERT_EQ(this->lock.Lock(-1), 0);
    ASSERT_EQ(this->lock.Lock(0), 0);
    this->lock.Unlock();
    EXPECT_LT(RefusedAfter(this->lock, 0), milliseconds(1000));
    this->lock.Unlock();
    EXPECT_EQ(OnOtherThread([&] {
                  const int32_t result = this->lock.Lock(0);
                  this->lock.Unlock();
                  return result;
              }),
              0);
}

TYPED_TEST(OwnedLockTest, ATimeOutWaitsAsLongAsItSaysAndTheGuardRaises) {
    const MLockGuard guard(&this->lock);
    const MLockGuard none(nullptr, 0);
    EXPECT_GE(RefusedAfter(this->lock, 30), milliseconds(29));
    EXPECT_EQ(OnOtherThread([&] { return FailureOf([&] { const MLockGuard refused(&this->lock, 5); }); }),
              "0: Could not acquire lock.");
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

TEST(MLockTest, BelowForeverFailsAtOnceEvenForAFreeLock) {
    MLock lock;
    EXPECT_NE(lock.Lock(-2), 0);
    EXPECT_EQ(lock.Lock(0), 0);
    lock.Unlock();
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
        EXPECT_NE(semaphore.Lock(0), 0);
        EXPECT_NE(semaphore.Lock(5), 0);
        semaphore.Unlock();
        semaphore.Unlock();
        EXPECT_EQ(semaphore.Lock(-1), 0);
        EXPECT_EQ(semaphore.Lock(0) == 0, !resetsItself);
        EXPECT_NE(semaphore.Lock(0), 0);
    }
}

TEST(MThreadLocalTest, EachThreadHasAWordOfItsOwn) {
    MThreadLocal slot;
    MThreadLocal other;
    int32_t here = 0;
    slot.Set(&here);
    EXPECT_EQ(OnOtherThread([&] {
                  void* const before = slot.Get();
                  slot.Set(&slot);
                  return before;
              }),
              nullptr);
    EXPECT_EQ(slot.Get(), &here);
    EXPECT_EQ(other.Get(), nullptr);
}

}  // namespace
