#include "examples/windows/MPlainStyle.h"
#include "foundation/events/MThread.h"
#include "ui/control/MContainers.h"
#include "ui/control/windows/MControlInvalidator.h"
#include "ui/control/windows/MWindows.h"
#include "ui/window/headless/MWindowSystemHeadless.h"

#include <functional>
#include <gmock/gmock.h>
#include <string>

using testing::ElementsAre;

namespace {

/// Windows in memory, with one that is shown.
class LoopTest : public testing::Test {
protected:
    LoopTest() {
        windows.SetStyle(std::make_unique<MPlainStyle>(&windows, SYSTEM_FONTS));
        window = std::make_unique<MWindow>("Loop");
        window->minClientSize = {120, 80};
        window->CreateWindow(nullptr);
        window->ShowModeless(nullptr);
        system.AdvanceTime(100);
    }
    ~LoopTest() noexcept override { window.reset(); }

    MWindows windows{std::make_unique<MWindowSystemHeadless>()};
    MWindowSystemHeadless& system = static_cast<MWindowSystemHeadless&>(windows.GetSystem());
    std::unique_ptr<MWindow> window;
};

class Ticker final : public MTimer {
public:
    explicit Ticker(std::function<void()> action) : action(std::move(action)) {}
    void OnTimer() override { action(); }

private:
    std::function<void()> action;
};

class Poster final : public MThread {
public:
    explicit Poster(std::function<void()> action) : action(std::move(action)) {}

protected:
    int32_t Execute() override {
        action();
        return 0;
    }

private:
    std::function<void()> action;
};

struct Receiver final : public MEventTarget {
    void OnNotified(const MOnNotifyParams&) {
        ++count;
        if (action) action();
    }
    std::function<void()> action;
    int32_t count = 0;
};

}  // namespace

TEST_F(LoopTest, TimersComeInTheOrderOfTheirTimesAndMayEndEachOther) {
    std::vector<std::string> log;
    auto doomed = std::make_unique<Ticker>([&] { log.push_back("doomed"); });
    Ticker fast([&] { log.push_back("fast " + std::to_string(system.GetTime())); });
    Ticker slow([&] {
        log.push_back("slow");
        doomed.reset();
        fast.StopTimer();
    });
    const int64_t start = system.GetTime();
    fast.StartTimer(40);
    slow.StartTimer(100);
    doomed->StartTimer(101);
    system.AdvanceTime(130);
    slow.StopTimer();
    EXPECT_THAT(
        log, ElementsAre("fast " + std::to_string(start + 40), "fast " + std::to_string(start + 80), "slow"));
}

/// A late loop does not make up for the calls it has missed, and one that raises is called again.
TEST_F(LoopTest, TimersThatAreLateOrRaiseGoOn) {
    int32_t calls = 0;
    Ticker ticker([&] {
        ++calls;
        throw MException(MString(), "no", 0);
    });
    ticker.StartTimer(10);
    windows.GetTimers().Run(system.GetTime() + 1000);
    EXPECT_EQ(calls, 1);
    windows.GetTimers().Run(system.GetTime() + 1010);
    EXPECT_EQ(calls, 2);
}

TEST_F(LoopTest, NothingWakesAProgramAtRest) {
    const int64_t before = system.CountWakeUps();
    system.Post([] {}, 10'000);
    system.RunApplication();
    EXPECT_EQ(system.CountWakeUps() - before, 1) << "but for what was posted";

    // A caret blinks twenty times: the timer, the tick, the paint.
    Ticker caret([&] { window->InvalidateRect(MRect::FromSize(10, 10, 2, 16)); });
    caret.StartTimer(500);
    const int64_t resting = system.CountWakeUps();
    system.Post([&] { caret.StopTimer(); }, 10'001);
    system.RunApplication();
    EXPECT_LE(system.CountWakeUps() - resting, 20 * 3 + 2);
    EXPECT_GE(system.CountWakeUps() - resting, 20 * 2);
}

TEST_F(LoopTest, OtherThreadsPostEventsAndInvalidate) {
    MEvent<MOnNotifyParams> event;
    Receiver receiver;
    event.Connect(&receiver, &Receiver::OnNotified);
    MControlInvalidator invalidator;
    invalidator.SetControl(window.get());
    MPlainStyle& style = static_cast<MPlainStyle&>(*windows.GetStyle());
    const int64_t paints = style.CountPaints();

    constexpr int32_t Rounds = 200;
    Poster poster([&] {
        for (int32_t round = 0; round < Rounds; ++round) {
            event.Post(&windows, {});
            invalidator.InvalidateRect(MRect::FromSize(round % 100, 5, 1, 1));
        }
    });
    system.SetPatience(2000);
    poster.Start();
    system.Post([&] { poster.Wait(); });
    system.Post([&] { window->CloseWindow(MModalValue::Cancel); }, 1000);
    system.RunApplication();
    EXPECT_EQ(receiver.count, Rounds);
    EXPECT_GT(style.CountPaints(), paints);
}

TEST_F(LoopTest, EventsHoldUpNeitherEachOtherNorTheLoop) {
    MEvent<MOnNotifyParams> event;
    Receiver raising;
    Receiver endless;
    raising.action = [] { throw 1; };
    event.Connect(&raising, &Receiver::OnNotified);
    event.Post(&windows, {});
    event.Post(&windows, {});
    system.AdvanceTime(10);
    EXPECT_EQ(raising.count, 2);
    event.Disconnect(&raising);
    event.Connect(&endless, &Receiver::OnNotified);
    endless.action = [&] { event.Post(&windows, {}); };
    event.Post(&windows, {});
    EXPECT_LE(system.ProcessPending(), 1024);
    EXPECT_TRUE(windows.HasPending());
    endless.action = nullptr;
}

TEST_F(LoopTest, APermanentRepaintDoesNotHoldWhatIsPending) {
    struct Restless final : public MWindow {
        bool Paint(MDrawer& drawer) override {
            MWindows::GetInstance()->GetSystem().Invalidate(*this, {0, 0, 5, 5});
            return MWindow::Paint(drawer);
        }
    };
    Restless restless;
    restless.minClientSize = {50, 50};
    restless.CreateWindow(nullptr);
    restless.ShowModeless(nullptr);
    for (int32_t round = 0; round < 3; ++round) EXPECT_LE(system.ProcessPending(), 12);
}

TEST_F(LoopTest, TimersAndPaintsGoOnInALoopOfAHandler) {
    MWindow dialog("Dialog");
    dialog.minClientSize = {50, 50};
    dialog.CreateWindow(window.get());
    int32_t beats = 0;
    Ticker beat([&] {
        if (++beats == 3) dialog.CloseWindow(MModalValue::Ok);
    });
    Ticker opener([&] {
        opener.StopTimer();
        window->Invalidate();
        beat.StartTimer(50);
        EXPECT_EQ(dialog.RunModal(window.get()), MModalValue::Ok);
    });
    opener.StartTimer(10);
    window->Invalidate();
    system.Post([] {}, 1000);
    system.RunApplication();
    EXPECT_GE(beats, 3);
}
