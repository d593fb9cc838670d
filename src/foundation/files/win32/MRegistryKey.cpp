#include "foundation/files/MRegistryKey.h"

#include "foundation/base/MRaise.h"
#include "foundation/files/win32/MNativePath.h"
#include "foundation/win32/MWindowsHeader.h"

#include <cstring>
#include <vector>

namespace {

constexpr REGSAM Access = KEY_ALL_ACCESS;

HKEY GetRoot(MRegistryRoot root) {
    switch (root) {
    case MRegistryRoot::ClassesRoot: return HKEY_CLASSES_ROOT;
    case MRegistryRoot::CurrentUser: return HKEY_CURRENT_USER;
    default: return HKEY_LOCAL_MACHINE;
    }
}

void WriteValue(HKEY key, const MString& name, DWORD type, const void* data, size_t size) {
    const LSTATUS result = RegSetValueExW(key, MToWide(name).c_str(), 0, type, static_cast<const BYTE*>(data),
                                          static_cast<DWORD>(size));
    if (result != ERROR_SUCCESS) MRaise(MExceptionGeneral, "Cannot set registry value {0}.", name);
}

/// The stored form as text. Stored text may lack its terminator.
MString ToText(DWORD type, const std::vector<BYTE>& data) {
    if (type == REG_DWORD && data.size() == sizeof(DWORD)) {
        int32_t number;
        std::memcpy(&number, data.data(), sizeof(number));
        return MFormat("{0}", number);
    }
    std::wstring text(data.size() / sizeof(wchar_t), 0);
    std::memcpy(text.data(), data.data(), text.size() * sizeof(wchar_t));
    return MFromWide(text.c_str());
}

}  // namespace

struct MRegistryKey::Handle {
    explicit Handle(HKEY key) : key(key) {}
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() { RegCloseKey(key); }

    static HKEY GetKey(const Parent& parent) {
        return parent.key ? parent.key->GetHandle().key : GetRoot(parent.root);
    }

    HKEY key;
};

MRegistryKey::MRegistryKey() = default;
MRegistryKey::MRegistryKey(MRegistryKey&& other) noexcept = default;
MRegistryKey& MRegistryKey::operator=(MRegistryKey&& other) noexcept = default;
MRegistryKey::~MRegistryKey() = default;

MRegistryKey::Handle& MRegistryKey::GetHandle() const {
    if (!handle) MRaise(MExceptionGeneral, "The registry key has not been opened.");
    return *handle;
}

void MRegistryKey::Open(Parent parent, const MString& name) {
    HKEY key;
    if (RegOpenKeyExW(Handle::GetKey(parent), MToWide(name).c_str(), 0, Access, &key) != ERROR_SUCCESS)
        MRaise(MExceptionGeneral, "Cannot open registry key {0}.", name);
    handle = std::make_unique<Handle>(key);
}

void MRegistryKey::Create(Parent parent, const MString& name) {
    HKEY key;
    if (RegCreateKeyExW(Handle::GetKey(parent), MToWide(name).c_str(), 0, nullptr, 0, Access, nullptr, &key,
                        nullptr) != ERROR_SUCCESS)
        MRaise(MExceptionGeneral, "Cannot create registry key {0}.", name);
    handle = std::make_unique<Handle>(key);
}

void MRegistryKey::Delete(Parent parent, const MString& name) {
    if (RegDeleteKeyW(Handle::GetKey(parent), MToWide(name).c_str()) != ERROR_SUCCESS)
        MRaise(MExceptionGeneral, "Cannot delete registry key {0}.", name);
}

void MRegistryKey::Close() {
    handle = nullptr;
}

MString MRegistryKey::GetValue(const MString& name) const {
    const std::wstring native = MToWide(name);
    DWORD type = 0;
    DWORD size = 0;
    LSTATUS result = RegQueryValueExW(GetHandle().key, native.c_str(), nullptr, &type, nullptr, &size);
    std::vector<BYTE> data(size);
    if (result == ERROR_SUCCESS)
        result = RegQueryValueExW(GetHandle().key, native.c_str(), nullptr, &type, data.data(), &size);
    if (result != ERROR_SUCCESS) MRaise(MExceptionGeneral, "Cannot get registry value {0}", name);
    return ToText(type, data);
}

void MRegistryKey::SetValue(const MString& name, const MString& text) {
    const std::wstring wide = MToWide(text);
    WriteValue(GetHandle().key, name, REG_SZ, wide.c_str(), (wide.size() + 1) * sizeof(wchar_t));
}

void MRegistryKey::SetValue(const MString& name, int32_t number) {
    WriteValue(GetHandle().key, name, REG_DWORD, &number, sizeof(number));
}
