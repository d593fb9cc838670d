#include "tests/ui/window/win32/Win32WindowFixture.h"

#include <thread>

namespace {

using WindowLoopTest = Win32WindowTest;

class Ticker final : public MTimer {
public:
    void OnTimer() override {
        ++ticks;
        if (onTick) onTick();
    }

    int32_t ticks = 0;
    std::function<void()> onTick;
};

}  // namespace

TEST_F(WindowLoopTest, InnerLoopsEndBeforeOuterOnesAndTheFirstResultStays) {
    LoggingWindow inner("Inner");
    MModalValue innerResult = MModalValue::None;
    Ticker ticker;
    ticker.onTick = [&] {
        if (ticker.ticks == 1) {
            innerResult = inner.RunModal(&window);
        } else {
            // The outer one is told first, while the inner one runs.
            window.CloseWindow(MModalValue::Yes);
            window.CloseWindow(MModalValue::No);
            if (ticker.ticks == 3) PostMessageW(GetHandle(inner), WM_CLOSE, 0, 0);
        }
    };
    ticker.StartTimer(20);
    EXPECT_EQ(window.RunModal(nullptr), MModalValue::Yes);
    EXPECT_EQ(innerResult, MModalValue::Cancel);
    // The end of the program ends all of them.
    bool isRunning = false;
    ticker.onTick = [&] { std::exchange(isRunning, true) ? system.Quit() : void(window.RunModal(nullptr)); };
    system.RunApplication();
    EXPECT_TRUE(isRunning);
}

TEST_F(WindowLoopTest, PendingMessagesAreHandledInPortions) {
    const HWND handle = Open(window);
    Pump(50);
    for (int32_t i = 0; i < 1500; ++i) PostMessageW(handle, WM_APP, 0, 0);
    EXPECT_EQ(system.ProcessPending(), 1024);
    EXPECT_GE(system.ProcessPending(), 1500 - 1024);
    for (int32_t i = 0; i < 30; ++i) PostMessageW(handle, WM_TIMER, 1, 0);
    EXPECT_EQ(system.ProcessPending(), 11);
    while (system.ProcessPending() > 0) {}

    LoggingWindow other("Other");
    const HWND otherHandle = Open(other);
    PostMessageW(handle, WM_CHAR, 'a', 0);
    PostMessageW(otherHandle, WM_CHAR, 'b', 0);
    window.TakeLog();
    windows.messageFilter = &other;
    while (system.ProcessPending() > 0) {}
    EXPECT_EQ(other.TakeLog(), "15 98\n");
    EXPECT_EQ(window.TakeLog(), "");
    windows.messageFilter = nullptr;
    EXPECT_TRUE(PumpUntil([&] { return window.log == "15 97\n"; }));
}

TEST_F(WindowLoopTest, IdleWindowsCauseNoMessages) {
    Open(window);
    Pump(200);
    int32_t count = 0;
    for (int32_t i = 0; i < 25; ++i) {
        Sleep(20);
        count += system.ProcessPending();
    }
    EXPECT_LE(count, 2) << "but for one or another of the system's own";
}

TEST_F(WindowLoopTest, TimersRunWhateverElseGoesOn) {
    const HWND handle = Open(window);
    Ticker ticker;
    ticker.StartTimer(20);
    // Messages that never end leave the system no time for timers.
    window.onEvent = [&](const MSystemEvent&) {
        if (ticker.ticks < 5) PostMessageW(handle, WM_CHAR, 'a', 0);
    };
    PostMessageW(handle, WM_CHAR, 'a', 0);
    EXPECT_TRUE(PumpUntil([&] { return ticker.ticks >= 5; }));
    window.onEvent = nullptr;
    system.Minimize(window);
    const int32_t before = ticker.ticks;
    EXPECT_TRUE(PumpUntil([&] { return ticker.ticks >= before + 3; }));
    // A loop of somebody else.
    const int32_t ticksBefore = ticker.ticks;
    MSG message;
    while (ticker.ticks < ticksBefore + 3 && GetMessageW(&message, nullptr, 0, 0) > 0)
        DispatchMessageW(&message);
    EXPECT_EQ(ticker.ticks, ticksBefore + 3);
}

TEST_F(WindowLoopTest, OtherThreadsWakeALoopAndShowAndHideWindows) {
    Open(window);
    Pump(100);
    std::thread other([&] {
        Sleep(50);
        system.Hide(window);
        Sleep(50);
        system.Show(window);
        Sleep(50);
        windows.RequestTick();
    });
    EXPECT_TRUE(PumpUntil([&] { return !system.IsVisible(window); }));
    EXPECT_TRUE(PumpUntil([&] { return system.IsVisible(window); }));
    const int32_t before = window.paints;
    window.Invalidate();
    EXPECT_TRUE(PumpUntil([&] { return window.paints > before; }));
    other.join();
}
