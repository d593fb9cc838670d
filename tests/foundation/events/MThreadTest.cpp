#include "foundation/events/MThread.h"

#include "foundation/base/MException.h"
#include "foundation/events/MSemaphore.h"
#include "foundation/module/MModule.h"
#include "tests/support/MTestText.h"

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <memory>
#include <thread>

namespace {

class TestThread final : public MThread {
public:
    explicit TestThread(std::function<int32_t(TestThread&)> body) : body(std::move(body)) {}
    ~TestThread() noexcept(false) override {
        RequestStop();
        if (!deletesItself) Wait();
    }

    using MThread::SleepUntilStop;

    bool deletesItself = false;

protected:
    int32_t Execute() override { return body(*this); }

private:
    std::function<int32_t(TestThread&)> body;
};

struct Listener final : MEventTarget {
    ~Listener() noexcept(false) override = default;
    void OnThread(const MOnThreadNotifyParams& params) {
        ++count;
        sender = params.thread;
        caller = std::this_thread::get_id();
    }

    int32_t count = 0;
    MThread* sender = nullptr;
    std::thread::id caller;
};

TEST(MThreadTest, StartIsFiredOnTheThreadAndFinishIsPostedToTheTarget) {
    TestThread thread([](TestThread&) { return 42; });
    MEventProcessor processor;
    Listener start;
    Listener finish;
    thread.SetTarget(&processor);
    thread.OnStart.Connect(&start, &Listener::OnThread);
    thread.OnFinish.Connect(&finish, &Listener::OnThread);
    EXPECT_TRUE(thread.Wait());
    for (int32_t run = 1; run <= 2; ++run) {
        thread.Start();
        EXPECT_TRUE(thread.Wait());
        EXPECT_EQ(thread.GetResult(), 42);
        EXPECT_EQ(start.count, run);
        EXPECT_NE(start.caller, std::this_thread::get_id());
        EXPECT_EQ(finish.count, run - 1);
        EXPECT_EQ(processor.DispatchPending(), 1);
        EXPECT_EQ(finish.sender, &thread);
        EXPECT_EQ(finish.caller, std::this_thread::get_id());
        // What comes too late for one run does not stop the next.
        thread.RequestStop();
    }
}

TEST(MThreadTest, ARequestToStopWakesASleepingBodyWhoeverWaits) {
    for (int32_t round = 0; round < 100; ++round) {
        std::atomic<bool> isRunning = false;
        TestThread thread([&](TestThread& self) {
            isRunning = true;
            return self.SleepUntilStop(-1) ? 1 : 2;
        });
        thread.Start();
        while (!isRunning) std::this_thread::yield();
        EXPECT_EQ(thread.GetResult(), MThread::NotFinished);
        std::thread other([&] { EXPECT_TRUE(thread.Wait()); });
        thread.RequestStop();
        EXPECT_TRUE(thread.Wait());
        other.join();
        ASSERT_EQ(thread.GetResult(), 1);
    }
    std::atomic<bool> ran = false;
    {
        TestThread neverStarted([&](TestThread&) { return ran = true, 0; });
        neverStarted.Create();
    }
    EXPECT_FALSE(ran);
}

TEST(MThreadTest, WhatIsThrownEndsTheThreadOnly) {
    MEventProcessor processor;
    for (const bool foreign : {false, true}) {
        TestThread thread([=](TestThread&) -> int32_t {
            if (foreign) throw 5;
            MRaise(MExceptionGeneral, "no");
        });
        Listener finish;
        thread.SetTarget(&processor);
        thread.OnFinish.Connect(&finish, &Listener::OnThread);
        thread.Start();
        EXPECT_TRUE(thread.Wait());
        EXPECT_EQ(thread.GetResult(), MThread::NotFinished);
        EXPECT_FALSE(processor.HasPending());
    }
}

TEST(MThreadTest, ASelfDeletingThreadGoesAtItsEndAndNoThreadWaitsForItself) {
    const auto alive = std::make_shared<int>();
    std::atomic<int32_t> waitedForItself = 0;
    for (int32_t i = 0; i < 20; ++i) {
        auto* const thread = new TestThread([&, alive](TestThread& self) {
            if (self.Wait()) ++waitedForItself;
            return 0;
        });
        thread->deletesItself = true;
        thread->SetSelfDelete(true);
        thread->Start();
    }
    while (alive.use_count() > 1) std::this_thread::yield();
    EXPECT_EQ(waitedForItself, 0);
}

TEST(MThreadTest, WhileTheProcessEndsAThreadIsStoppedHardAndNotWaitedFor) {
    // The thread never ends, so what it has seen must outlive the test.
    static std::atomic<int64_t> steps = 0;
    TestThread thread([](TestThread&) {
        for (;;) ++steps;
        return 0;
    });
    thread.Start();
    while (steps == 0) std::this_thread::yield();
    MThread::SetProcessEnding(true);
    EXPECT_TRUE(thread.Wait());
    MThread::SetProcessEnding(false);
    // The system may take a moment to deliver the end.
    for (int64_t seen = -1; seen != steps;) {
        seen = steps;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
}

TEST(MThreadDeathTest, AThreadThatNeverEndsDoesNotKeepTheProcess) {
    static MSemaphore neverReleased;
    static std::atomic<bool> isRunning = false;
    const auto leave = [](int32_t (*body)()) {
        static TestThread thread([body](TestThread&) {
            isRunning = true;
            return body();
        });
        const MModule module;
        thread.Start();
        while (!isRunning) std::this_thread::yield();
        // One that waits shall have come to that.
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        std::exit(7);
    };
    int32_t (*const bodies[])() = {
        []() -> int32_t {
            for (;;) isRunning = true;
        },
        [] { return neverReleased.Lock(-1); },
    };
    for (const auto body : bodies) EXPECT_EXIT(leave(body), testing::ExitedWithCode(7), "");
    const auto leaveFromThread = [] {
        static TestThread thread([](TestThread&) -> int32_t { std::exit(7); });
        const MModule module;
        thread.Start();
        std::this_thread::sleep_for(std::chrono::hours(1));
    };
    EXPECT_EXIT(leaveFromThread(), testing::ExitedWithCode(7), "");
}

}  // namespace
