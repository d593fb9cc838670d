#pragma once

#include "foundation/base/MList.h"
#include "foundation/base/MObject.h"
#include "foundation/events/MLock.h"

class MEventBase;

/// The one lock over all lists of events: handlers, queues, pending lists and the lists of targets. Handlers
/// run outside it. It is made at first use and never destroyed, since events may end after anything else.
[[nodiscard]] MLock& MEventLock();

/// Whatever has handlers of events. When it ends it is disconnected from all of them, so that a dead target
/// is never called; a target that another thread destroys must not be within a handler at that moment.
class MEventTarget : public MObject {
public:
    MEventTarget() = default;
    /// Connections belong to the object itself: a copy has none, and an assigned object keeps its own.
    MEventTarget(const MEventTarget& other) : MObject(other) {}
    MEventTarget& operator=(const MEventTarget&) { return *this; }
    ~MEventTarget() override;

private:
    friend class MEventBase;

    MList<MEventBase*> connectedEvents;
};
