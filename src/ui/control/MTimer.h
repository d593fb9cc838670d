#pragma once

/// A mixin for whatever is called back periodically, on the thread of the user interface.
class MTimer {
public:
    MTimer() = default;
    MTimer(const MTimer&) = delete;
    MTimer& operator=(const MTimer&) = delete;
    virtual ~MTimer() noexcept(false) = default;

    virtual void OnTimer() = 0;
};
