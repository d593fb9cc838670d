#pragma once

#include "foundation/events/MEventBase.h"
#include "foundation/events/MEventHandler.h"
#include "foundation/events/MEventProcessor.h"
#include "foundation/events/MEventUnlock.h"
#include "foundation/events/MLockGuard.h"

#include <deque>
#include <limits>
#include <utility>

/// What handlers normally carry besides their method: nothing, so each takes all parameters.
struct MHandlerNoAdditionals {
    template <class Params>
    [[nodiscard]] bool Accepts(const Params&) const {
        return true;
    }
};

/// An event with the handlers bound to it, fired at once or posted to the thread of a processor.
///
/// `Additionals` are kept with each handler; a handler is called only with parameters that they accept.
/// Every operation may be called from any thread. What a handler throws passes through.
template <class Params, class Additionals = MHandlerNoAdditionals>
class MEvent final : public MEventBase {
public:
    template <class Target>
    using Method = typename MEventHandler<Params>::template Method<Target>;

    MEvent() = default;
    ~MEvent() override {
        const MLockGuard guard(&MEventLock());
        ClearQueued();
        while (!handlers.IsEmpty()) Disconnect(handlers[0].method.GetTarget());
    }

    /// Adds a handler at the end. Neither the event nor the target owns the other; either may end first.
    template <class Target>
    void Connect(Target* target, Method<Target> method, const Additionals& additionals = {}) {
        const MLockGuard guard(&MEventLock());
        handlers.Add({MEventHandler<Params>(target, method), additionals});
        AddToTarget(target);
    }

    void Disconnect(MEventTarget* target) override {
        const MLockGuard guard(&MEventLock());
        for (int32_t index = handlers.GetCount() - 1; index >= 0; --index) {
            if (handlers[index].method.GetTarget() != target) continue;
            handlers.Remove(index);
            HandlerRemoved(index);
        }
        RemoveFromTarget(target);
    }

    [[nodiscard]] bool HasHandlers() const {
        const MLockGuard guard(&MEventLock());
        return !handlers.IsEmpty();
    }

    /// Calls the handlers in their order on the calling thread, those that a handler adds among them.
    /// Returns whether any ran.
    bool Fire(const Params& params) {
        const MLockGuard guard(&MEventLock());
        return CallHandlers(params, std::numeric_limits<int32_t>::max());
    }

    /// Queues a copy of `params`, to be dispatched by `processor`; all that is queued goes to the processor
    /// named last. Returns false, and queues nothing, if the event has no handlers. Calls no handler.
    bool Post(MEventProcessor* target, const Params& params) {
        const MLockGuard guard(&MEventLock());
        if (handlers.IsEmpty() || !target) return false;
        MoveTo(target);
        queue.push_back(params);
        target->Enter(this);
        return true;
    }

    void Dispatch() override {
        if (queue.empty()) return;
        const Params params = std::move(queue.front());
        queue.pop_front();
        processor->LeaveOnce(this);
        if (queue.empty()) processor = nullptr;
        CallHandlers(params, handlers.GetCount());
    }

    void ClearQueued() override {
        const MLockGuard guard(&MEventLock());
        if (processor) processor->Leave(this);
        processor = nullptr;
        queue.clear();
    }

private:
    struct Handler {
        MEventHandler<Params> method;
        Additionals additionals;
    };

    /// Called under the event lock, held once, which is free while a handler runs.
    bool CallHandlers(const Params& params, int32_t limit) {
        bool anyRan = false;
        Walk walk(*this, limit);
        while (walk.IsEventAlive()) {
            const int32_t index = walk.Next(handlers.GetCount());
            if (index < 0) break;
            const Handler handler = handlers[index];
            if (!handler.additionals.Accepts(params)) continue;
            const MEventUnlock unlocked;
            anyRan = true;
            handler.method(params);
        }
        return anyRan;
    }

    void MoveTo(MEventProcessor* target) {
        if (processor && processor != target) {
            processor->Leave(this);
            for (size_t entry = 0; entry < queue.size(); ++entry) target->Enter(this);
        }
        processor = target;
    }

    MList<Handler> handlers;
    std::deque<Params> queue;
};
