#include "foundation/events/MEventProcessor.h"

#include "foundation/events/MEventBase.h"
#include "foundation/events/MLockGuard.h"

#include <algorithm>

MEventProcessor::~MEventProcessor() {
    const MLockGuard guard(&MEventLock());
    while (!pending.empty()) pending.front()->ClearQueued();
}

bool MEventProcessor::DispatchNext() {
    const MLockGuard guard(&MEventLock());
    if (pending.empty()) return false;
    pending.front()->Dispatch();
    return true;
}

int32_t MEventProcessor::DispatchPending() {
    int32_t count = 0;
    while (DispatchNext()) ++count;
    return count;
}

bool MEventProcessor::HasPending() const {
    const MLockGuard guard(&MEventLock());
    return !pending.empty();
}

void MEventProcessor::Enter(MEventBase* event) {
    pending.push_back(event);
    WakeUp();
}

void MEventProcessor::Leave(MEventBase* event) {
    std::erase(pending, event);
}

void MEventProcessor::LeaveOnce(MEventBase* event) {
    const auto found = std::find(pending.begin(), pending.end(), event);
    if (found != pending.end()) pending.erase(found);
}
