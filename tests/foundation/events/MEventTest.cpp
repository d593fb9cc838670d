#include "foundation/events/MEvent.h"

#include "foundation/base/MException.h"

#include <array>
#include <atomic>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <numeric>
#include <thread>
#include <vector>

namespace {

using NumberEvent = MEvent<int32_t>;

/// Not the first base, so that a method needs its object's own address.
struct Ballast {
    virtual ~Ballast() noexcept(false) = default;
    int32_t weight = 7;
};

class Recorder final : public Ballast, public MEventTarget {
public:
    Recorder() = default;
    ~Recorder() noexcept(false) override = default;

    void OnNumber(const int32_t& number) {
        numbers.push_back(number);
        if (reaction) reaction();
    }

    std::vector<int32_t> numbers;
    std::function<void()> reaction;
};

using Numbers = std::vector<int32_t>;

/// Chooses what a handler gets.
struct OnlyAbove {
    int32_t bound = 0;
    [[nodiscard]] bool Accepts(int32_t number) const { return number > bound; }
};

TEST(MEventTest, HandlersAreCalledInOrderAndMayRemoveAnyOther) {
    for (const bool isPosted : {false, true})
        for (size_t removed = 0; removed < 3; ++removed) {
            NumberEvent event;
            MEventProcessor processor;
            EXPECT_FALSE(event.Fire(1));
            std::array<Recorder, 3> recorders;
            Recorder added;
            for (Recorder& recorder : recorders) event.Connect(&recorder, &Recorder::OnNumber);
            recorders[1].reaction = [&] {
                EXPECT_TRUE(recorders[2].numbers.empty());
                event.Disconnect(&recorders[removed]);
                event.Connect(&added, &Recorder::OnNumber);
            };
            if (isPosted) {
                event.Post(&processor, 1);
                EXPECT_EQ(processor.DispatchPending(), 1);
            } else {
                EXPECT_TRUE(event.Fire(1));
            }
            for (size_t i = 0; i < 3; ++i)
                EXPECT_EQ(recorders[i].numbers.size(), i == 2 && removed == 2 ? 0u : 1u) << removed << i;
            // What is posted reaches only those who were there when it was dispatched.
            EXPECT_EQ(added.numbers.size(), isPosted ? 0u : 1u);
        }
}

TEST(MEventTest, AHandlerMayThrowEndTheEventOrChooseWhatItGets) {
    auto event = std::make_unique<NumberEvent>();
    Recorder first;
    Recorder second;
    event->Connect(&first, &Recorder::OnNumber);
    event->Connect(&second, &Recorder::OnNumber);
    first.reaction = [] { MRaise(MExceptionGeneral, "no"); };
    EXPECT_THROW(event->Fire(1), MException);
    first.reaction = [&] { event.reset(); };
    EXPECT_TRUE(event->Fire(2));
    EXPECT_EQ(first.numbers, (Numbers{1, 2}));
    EXPECT_TRUE(second.numbers.empty());

    MEvent<int32_t, OnlyAbove> choosing;
    choosing.Connect(&second, &Recorder::OnNumber, OnlyAbove{5});
    EXPECT_TRUE(!choosing.Fire(5) && choosing.Fire(6));
    EXPECT_EQ(second.numbers, Numbers{6});
}

TEST(MEventTest, PostedValuesComeInOrderAcrossEventsAndOnlyWhenDispatched) {
    NumberEvent odd;
    NumberEvent even;
    MEventProcessor processor;
    Recorder recorder;
    EXPECT_FALSE(odd.Post(&processor, 1));
    EXPECT_FALSE(processor.HasPending());
    odd.Connect(&recorder, &Recorder::OnNumber);
    even.Connect(&recorder, &Recorder::OnNumber);
    for (int32_t number = 1; number <= 5; ++number) (number % 2 ? odd : even).Post(&processor, number);
    EXPECT_TRUE(recorder.numbers.empty());
    EXPECT_TRUE(processor.DispatchNext());
    even.ClearQueued();
    EXPECT_EQ(processor.DispatchPending(), 2);
    EXPECT_EQ(recorder.numbers, (Numbers{1, 3, 5}));
}

TEST(MEventTest, NothingIsDeliveredToOrByWhatHasEnded) {
    MEventProcessor processor;
    auto event = std::make_unique<NumberEvent>();
    auto gone = std::make_unique<Recorder>();
    Recorder stays;
    event->Connect(gone.get(), &Recorder::OnNumber);
    event->Connect(&stays, &Recorder::OnNumber);
    event->Post(&processor, 1);
    gone.reset();
    EXPECT_EQ(processor.DispatchPending(), 1);
    EXPECT_EQ(stays.numbers, Numbers{1});
    {
        MEventProcessor shortLived;
        event->Post(&shortLived, 2);
    }
    event->Post(&processor, 3);
    event.reset();
    EXPECT_EQ(processor.DispatchPending(), 0);
    EXPECT_EQ(stays.numbers, Numbers{1});
}

/// Two threads post and this one dispatches: every value that was taken must arrive, and those of one thread in
/// their order. Meanwhile targets and events with something posted come and go.
TEST(MEventTest, HammeredFromSeveralThreadsNothingIsLost) {
    constexpr int32_t Count = 20'000;
    MEventProcessor processor;
    std::array<NumberEvent, 2> events;
    std::array<Recorder, 2> recorders;
    std::atomic<int32_t> running = 2;
    std::vector<std::thread> threads;
    for (size_t i = 0; i < events.size(); ++i) {
        events[i].Connect(&recorders[i], &Recorder::OnNumber);
        threads.emplace_back([&, i] {
            for (int32_t number = 0; number < Count; ++number) {
                events[i].Post(&processor, number);
                // A target must not end within a handler; these additionals keep the handler from running.
                MEvent<int32_t, OnlyAbove> event;
                Recorder target;
                event.Connect(&target, &Recorder::OnNumber, OnlyAbove{1});
                event.Post(&processor, 0);
            }
            --running;
        });
    }
    while (running > 0) processor.DispatchPending();
    for (std::thread& thread : threads) thread.join();
    processor.DispatchPending();
    Numbers expected(Count);
    std::iota(expected.begin(), expected.end(), 0);
    for (const Recorder& recorder : recorders) EXPECT_TRUE(recorder.numbers == expected);
}

}  // namespace
