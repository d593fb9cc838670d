#pragma once

#include "foundation/events/MEventTarget.h"

#include <cstdint>

class MEventProcessor;

/// What the events of all parameter types have in common. Every operation may be called from any thread.
class MEventBase : public MEventTarget {
public:
    MEventBase() = default;
    MEventBase(const MEventBase&) = delete;
    MEventBase& operator=(const MEventBase&) = delete;
    ~MEventBase() override;

    /// Calls the handlers with the first queued parameters; nothing happens if none are queued. The caller
    /// holds the event lock once. The lock is free while handlers run and is held again at the end; the
    /// event itself may be gone by then.
    virtual void Dispatch() = 0;
    /// Forgets everything that is queued.
    virtual void ClearQueued() = 0;
    /// Removes all handlers of `target`.
    virtual void Disconnect(MEventTarget* target) = 0;

protected:
    /// One pass over the handlers. It survives changes of their list and even the end of the event while a
    /// handler runs: no handler is skipped or called twice. Made, moved and ended under the event lock.
    class Walk final {
    public:
        Walk(MEventBase& event, int32_t limit);
        Walk(const Walk&) = delete;
        Walk& operator=(const Walk&) = delete;
        ~Walk();

        /// The index of the next handler among `count`, or -1 at the end.
        [[nodiscard]] int32_t Next(int32_t count);
        [[nodiscard]] bool IsEventAlive() const { return event != nullptr; }

    private:
        friend class MEventBase;

        MEventBase* event;
        int32_t next = 0;
        int32_t limit;
        Walk* outer;
    };

    void AddToTarget(MEventTarget* target);
    void RemoveFromTarget(MEventTarget* target);
    /// Tells the passes under way that the handler at `index` is gone.
    void HandlerRemoved(int32_t index);

    /// Who dispatches what is queued; not owned, null while nothing is.
    MEventProcessor* processor = nullptr;

private:
    Walk* walks = nullptr;
};
