#pragma once

#include "foundation/events/MEventTarget.h"

#include <deque>

class MEventBase;

/// Whatever dispatches posted events on a thread of its own, in the order in which they were posted.
/// When it ends, what is still pending for it is forgotten.
class MEventProcessor : public MEventTarget {
public:
    MEventProcessor() = default;
    MEventProcessor(const MEventProcessor&) = delete;
    MEventProcessor& operator=(const MEventProcessor&) = delete;
    ~MEventProcessor() override;

    /// Dispatches the oldest pending event on the calling thread, which is the processor's own. Returns false
    /// if there was none. What a handler throws passes through.
    bool DispatchNext();
    /// Dispatches until nothing is pending; returns how many times.
    int32_t DispatchPending();
    [[nodiscard]] bool HasPending() const;

protected:
    /// Something was posted: called on the poster's thread, under the event lock, and therefore short.
    virtual void WakeUp() {}

private:
    template <class Params, class Additionals>
    friend class MEvent;

    /// These are called under the event lock. There is one entry for each queued value of an event.
    void Enter(MEventBase* event);
    void Leave(MEventBase* event);
    void LeaveOnce(MEventBase* event);

    std::deque<MEventBase*> pending;
};
