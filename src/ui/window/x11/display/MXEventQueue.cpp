#include "ui/window/x11/display/MXEventQueue.h"

#include "foundation/base/MException.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <limits>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>
#include <utility>

int64_t MXMilliseconds() {
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

MXEventQueue::MXEventQueue(const MXConnection& connection)
    : connection(connection), wakeDescriptor(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    if (wakeDescriptor < 0) MRaise(MExceptionGeneral, "Could not create a wake-up descriptor.");
}

MXEventQueue::~MXEventQueue() {
    close(wakeDescriptor);
}

MXEvent MXEventQueue::Take() {
    if (waiting.empty()) return MXEvent(xcb_poll_for_event(connection));
    MXEvent first = std::move(waiting.front());
    waiting.pop_front();
    return first;
}

const xcb_generic_event_t* MXEventQueue::Peek() {
    if (waiting.empty()) Gather();
    return waiting.empty() ? nullptr : waiting.front().get();
}

void MXEventQueue::Gather() {
    while (xcb_generic_event_t* const event = xcb_poll_for_event(connection)) waiting.emplace_back(event);
}

// Flushing may read events as well, which the descriptor then no longer tells of.
void MXEventQueue::Wait(int64_t milliseconds) {
    xcb_flush(connection);
    if (Peek() || !connection.IsAlive()) return;
    pollfd sources[] = {{xcb_get_file_descriptor(connection), POLLIN, 0}, {wakeDescriptor, POLLIN, 0}};
    constexpr int64_t Longest = std::numeric_limits<int>::max();
    poll(sources, std::size(sources), static_cast<int>(std::min(milliseconds, Longest)));
    ++wakings;
    uint64_t count;
    if (sources[1].revents) [[maybe_unused]]
        const ssize_t size = read(wakeDescriptor, &count, sizeof(count));
}

void MXEventQueue::Wake() const {
    const uint64_t one = 1;
    [[maybe_unused]] const ssize_t size = write(wakeDescriptor, &one, sizeof(one));
}

MXEvent MXEventQueue::WaitFor(const std::function<bool(const xcb_generic_event_t&)>& isWanted,
                              int64_t milliseconds) {
    const int64_t end = MXMilliseconds() + milliseconds;
    xcb_flush(connection);
    for (;;) {
        Gather();
        const auto found = std::find_if(waiting.begin(), waiting.end(),
                                        [&](const MXEvent& event) { return isWanted(*event); });
        if (found != waiting.end()) {
            MXEvent event = std::move(*found);
            waiting.erase(found);
            return event;
        }
        const int64_t left = end - MXMilliseconds();
        if (left <= 0 || !connection.IsAlive()) return nullptr;
        pollfd source{xcb_get_file_descriptor(connection), POLLIN, 0};
        poll(&source, 1, static_cast<int>(left));
    }
}

bool MXEventQueue::Has(const std::function<bool(const xcb_generic_event_t&)>& isWanted) {
    Gather();
    return std::ranges::any_of(waiting, [&](const MXEvent& event) { return isWanted(*event); });
}

void MXEventQueue::Drop(const std::function<bool(const xcb_generic_event_t&)>& isUnwanted) {
    Gather();
    std::erase_if(waiting, [&](const MXEvent& event) { return isUnwanted(*event); });
}
