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
    EXPECT_GE(RefusedAfter(this->lock, 30), milliseconds(29));
    const MString message = OnOtherThread([&] {
        try {
            const MLockGuard refused(&this->lock, 5);
        } catch (const MException& failure) {
            return failure.GetMessage();
        }
        return MString("held");
    });
    EXPECT_EQ(Text(message), "Could not acquire lock.");
}

TYPED_TEST(OwnedLockTest, ThreadsThatHammerLoseNoCount) {
    constexpr int32_t threads = 4;
    const auto end = steady_clock::now() + milliseconds(500);
    int64_t shared = 0;
    std::vector<int64_t> counts(threads);
    std::vector<std::thread> workers;
    workers.reserve(threads);
    for (int32_t i = 0; i < threads; ++i)
        workers.emplace_back([&, i] {
            while (steady_clock::now() < end) {
                const MLockGuard guard(&this->lock);
                ++shared;
                ++counts[static_cast<size_t>(i)];
            }
        });
    for (std::thread& worker : workers) worker.join();
    int64_t sum = 0;
    for (const int64_t count : counts) sum += count;
    EXPECT_EQ(shared, sum);
    EXPECT_GT(sum, threads);
}

TEST(MLockTest, BelowForeverFailsAtOnceEvenForAFreeLock) {
    MLock lock;
    EXPECT_NE(lock.Lock(-2), 0);
    EXPECT_EQ(lock.Lock(0), 0);
    lock.Unlock();
}

TEST(MLockGuardTest, ANullSynchronizerPasses) {
    EXPECT_NO_THROW(MLockGuard(nullptr, 0));
}

TEST(MMutexTest, WhatAnEndedOwnerLeftGoesToTheNext) {
    MMutex mutex;
    ASSERT_EQ(OnOtherThread([&] { return mutex.Lock(-1); }), 0);
    EXPECT_EQ(mutex.Lock(1000), 0);
    mutex.Unlock();
    EXPECT_EQ(mutex.Lock(0), 0);
    mutex.Unlock();
}

TEST(MSemaphoreTest, CountsItsReleases) {
    MSemaphore semaphore;
    EXPECT_NE(semaphore.Lock(0), 0);
    EXPECT_NE(semaphore.Lock(5), 0);
    semaphore.Unlock();
    semaphore.Unlock();
    EXPECT_EQ(semaphore.Lock(-1), 0);
    EXPECT_EQ(semaphore.Lock(0), 0);
    EXPECT_NE(semaphore.Lock(0), 0);
}

TEST(MSemaphoreTest, WithAutoResetManyReleasesWakeOnce) {
    MSemaphore semaphore(true);
    semaphore.Unlock();
    semaphore.Unlock();
    EXPECT_EQ(semaphore.Lock(-1), 0);
    EXPECT_NE(semaphore.Lock(0), 0);
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
