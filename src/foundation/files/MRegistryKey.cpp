#include "foundation/files/MRegistryKey.h"

#include "foundation/base/MRaise.h"
#include "foundation/files/MRegistryHandle.h"

MRegistryKey::Parent::Parent(MRegistryRoot root) : handle(MRegistryHandle::OpenRoot(root)) {}

MRegistryKey::Parent::Parent(const MRegistryKey& key) : handle(key.handle) {
    key.RequireOpen();
}

void MRegistryKey::Open(const Parent& parent, const MString& name) {
    handle = parent.handle->Open(name);
    if (!handle) MRaise(MExceptionGeneral, "Cannot open registry key {0}.", name);
}

void MRegistryKey::Create(const Parent& parent, const MString& name) {
    handle = parent.handle->Create(name);
    if (!handle) MRaise(MExceptionGeneral, "Cannot create registry key {0}.", name);
}

void MRegistryKey::Delete(const Parent& parent, const MString& name) {
    if (!parent.handle->Delete(name)) MRaise(MExceptionGeneral, "Cannot delete registry key {0}.", name);
}

MString MRegistryKey::GetValue(const MString& name) const {
    MString value;
    RequireOpen();
    if (!handle->Read(name, value)) MRaise(MExceptionGeneral, "Cannot get registry value {0}", name);
    return value;
}

void MRegistryKey::SetValue(const MString& name, const MString& text) {
    RequireOpen();
    if (!handle->WriteText(name, text)) MRaise(MExceptionGeneral, "Cannot set registry value {0}.", name);
}

void MRegistryKey::SetValue(const MString& name, int32_t number) {
    RequireOpen();
    if (!handle->WriteNumber(name, number)) MRaise(MExceptionGeneral, "Cannot set registry value {0}.", name);
}

void MRegistryKey::RequireOpen() const {
    if (!handle) MRaise(MExceptionGeneral, "The registry key has not been opened.");
}
