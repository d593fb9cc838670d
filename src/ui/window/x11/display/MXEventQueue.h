#pragma once

#include "ui/window/x11/display/MXConnection.h"

#include <cstdint>
#include <deque>
#include <functional>

/// An event as xcb gives it.
using MXEvent = MXReply<xcb_generic_event_t>;

/// What kind an event is, whoever has sent it.
[[nodiscard]] inline uint8_t MXKindOf(const xcb_generic_event_t& event) {
    return event.response_type & 0x7F;
}
/// The event as the structure of its kind.
template <class T>
[[nodiscard]] const T& MXAs(const xcb_generic_event_t& event) {
    return reinterpret_cast<const T&>(event);
}

/// Milliseconds of a clock that only goes forwards.
[[nodiscard]] int64_t MXMilliseconds();

/// Gives the events of a display in their order, and sleeps while there are none. Belongs to the thread of
/// the connection, but for `Wake`.
class MXEventQueue {
public:
    static constexpr int64_t Forever = -1;

    /// Raises "Could not create a wake-up descriptor." (0).
    explicit MXEventQueue(const MXConnection& connection);
    MXEventQueue(const MXEventQueue&) = delete;
    MXEventQueue& operator=(const MXEventQueue&) = delete;
    ~MXEventQueue();

    /// The next event that is there, or null.
    [[nodiscard]] MXEvent Take();
    /// Shows the next event, if it is there already, without taking it.
    [[nodiscard]] const xcb_generic_event_t* Peek();
    /// Sends what was asked of the server, and sleeps until an event is there, `Wake` was called, the server
    /// has died or so many milliseconds have passed.
    void Wait(int64_t milliseconds);
    /// Ends the sleep of `Wait`, or the next one, from any thread.
    void Wake() const;

    /// Takes the first event that is wanted, also out of the middle, and waits for it for at most so many
    /// milliseconds; null if it does not come. The others stay in their order.
    [[nodiscard]] MXEvent WaitFor(const std::function<bool(const xcb_generic_event_t&)>& isWanted,
                                  int64_t milliseconds);
    /// Whether there is such an event among those that wait.
    [[nodiscard]] bool Has(const std::function<bool(const xcb_generic_event_t&)>& isWanted);
    /// Drops the events that are there and not wanted any more.
    void Drop(const std::function<bool(const xcb_generic_event_t&)>& isUnwanted);

    /// How often `Wait` has returned, for those who look whether an idle program sleeps.
    [[nodiscard]] int64_t CountWakings() const { return wakings; }

private:
    /// Puts what the server has sent behind the events that wait.
    void Gather();

    const MXConnection& connection;
    std::deque<MXEvent> waiting;
    int wakeDescriptor;
    int64_t wakings = 0;
};
