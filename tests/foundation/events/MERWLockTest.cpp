#include "foundation/events/MERWLock.h"

#include "foundation/events/MEmulatedLockGuard.h"

#include <atomic>
#include <chrono>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

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
    EXPECT_TRUE(reader.StaysOutside());
    lock.Release(MERWLock::Write);
    EXPECT_TRUE(reader.StaysOutside());
    lock.Release(MERWLock::Write);
    EXPECT_TRUE(reader.Enters());
    lock.Release(MERWLock::Read);
    lock.Release(MERWLock::Read);
}

/// Every thread enters as a reader, and some then upgrade: the writer must be alone with what it changes,
/// and readers must see both halves equal.
TEST(MERWLockTest, ReadersWritersAndUpgradersNeverSeeHalfAChange) {
    MERWLock lock;
    int64_t halves[2] = {};
    std::atomic<int64_t> writes = 0;
    std::atomic<int64_t> torn = 0;
    const auto end = steady_clock::now() + milliseconds(300);
    const auto write = [&] {
        const MEmulatedLockGuard guard(&lock, MERWLock::Write);
        for (int64_t& half : halves) ++half;
        ++writes;
    };
    const auto read = [&](bool upgrade) {
        const MEmulatedLockGuard guard(&lock, MERWLock::Read);
        if (halves[0] != halves[1]) ++torn;
        if (upgrade) write();
    };
    std::vector<std::thread> workers;
    for (int32_t i = 0; i < 6; ++i)
        workers.emplace_back([&, i] {
            while (steady_clock::now() < end) i % 3 == 0 ? write() : read(i % 3 == 1);
        });
    for (std::thread& worker : workers) worker.join();
    EXPECT_EQ(torn, 0);
    EXPECT_EQ(halves[0], writes);
    EXPECT_GT(writes, 6);
}

}  // namespace
