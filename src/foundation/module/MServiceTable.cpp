#include "foundation/module/MServiceTable.h"

#include "foundation/base/MException.h"

void MServiceTable::AddService(const MString& name, ServiceFunction function) {
    if (Services.GetCount() >= MaximumServices) MRaise(MExceptionGeneral, "Too many services.");
    Services.Add({name, function});
}

void* MServiceTable::CallService(const MString& name, void* argument) const {
    for (const Service& service : Services)
        if (service.name == name) return service.function(argument);
    return nullptr;
}
