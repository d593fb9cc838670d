#pragma once

#include <chrono>

/// Keeps the windows alive while work goes on in their thread: between two pieces of it they are painted, and
/// what waits for them is handled, so that they can be moved and uncovered and the system sees that they
/// listen. No loop turns: whoever works sees to it that nothing can be done in a window that must not be.
class MWindowPulse final {
public:
    /// To be called between any two pieces of work; most calls do nothing.
    void Beat();

private:
    static constexpr std::chrono::milliseconds Interval{30};

    std::chrono::steady_clock::time_point last{};
};
