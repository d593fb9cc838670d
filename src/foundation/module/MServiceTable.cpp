#include "foundation/module/MServiceTable.h"

#include "foundation/base/MException.h"

void MServiceTable::AddService(const MString& name, ServiceFunction function) {
    if (services.GetCount() >= MaximumServices) MRaise(MExceptionGeneral, "Too many services.");
    services.Add({name, function});
}

void* MServiceTable::CallService(const MString& name, void* argument) const {
    for (const Service& service : services)
        if (service.name == name) return service.function(argument);
    return nullptr;
}
