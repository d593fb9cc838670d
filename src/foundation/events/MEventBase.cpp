#include "foundation/events/MEventBase.h"

#include "foundation/events/MLockGuard.h"

#include <algorithm>
#include <limits>

MEventBase::Walk::Walk(MEventBase& event, int32_t limit) : event(&event), limit(limit), outer(event.walks) {
    event.walks = this;
}

MEventBase::Walk::~Walk() {
    if (!event) return;
    Walk** link = &event->walks;
    while (*link != this) link = &(*link)->outer;
    *link = outer;
}

int32_t MEventBase::Walk::Next(int32_t count) {
    return event && next < std::min(count, limit) ? next++ : -1;
}

MEventBase::~MEventBase() {
    const MLockGuard guard(&MEventLock());
    for (Walk* walk = walks; walk; walk = walk->outer) walk->event = nullptr;
}

void MEventBase::AddToTarget(MEventTarget* target) {
    MList<MEventBase*>& events = target->connectedEvents;
    if (std::find(events.begin(), events.end(), this) == events.end()) events.Add(this);
}

void MEventBase::RemoveFromTarget(MEventTarget* target) {
    MList<MEventBase*>& events = target->connectedEvents;
    const auto found = std::find(events.begin(), events.end(), this);
    if (found != events.end()) events.Remove(static_cast<int32_t>(found - events.begin()));
}

void MEventBase::HandlerRemoved(int32_t index) {
    for (Walk* walk = walks; walk; walk = walk->outer) {
        if (index < walk->next) --walk->next;
        if (index < walk->limit && walk->limit != std::numeric_limits<int32_t>::max()) --walk->limit;
    }
}
