#pragma once

#include "foundation/base/MList.h"
#include "foundation/text/MString.h"

#include <cstdint>

/// A mixin for what offers functions by name. Services are added before other threads call them.
class MServiceTable {
public:
    using ServiceFunction = void* (*)(void* argument);

    static constexpr int32_t MaximumServices = 64;

    /// Appends a service. Beyond `MaximumServices` raises "Too many services." (0).
    void AddService(const MString& name, ServiceFunction function);
    /// Calls the service of that name, the first added winning; null if there is none.
    void* CallService(const MString& name, void* argument) const;

private:
    struct Service {
        MString name;
        ServiceFunction function;
    };

    MList<Service> Services;
};
