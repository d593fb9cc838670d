#include "foundation/files/MRegistryHandle.h"

#include "foundation/files/win32/MNativePath.h"
#include "foundation/text/MNumberText.h"
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

/// The stored form as text. Stored text may lack its terminator.
MString ToText(DWORD type, const std::vector<BYTE>& data) {
    if (type == REG_DWORD && data.size() == sizeof(DWORD)) {
        int32_t number;
        std::memcpy(&number, data.data(), sizeof(number));
        return MNumberToText(number);
    }
    std::wstring text(data.size() / sizeof(wchar_t), 0);
    std::memcpy(text.data(), data.data(), text.size() * sizeof(wchar_t));
    return MFromWide(text.c_str());
}

class SystemHandle final : public MRegistryHandle {
public:
    SystemHandle(HKEY key, bool isRoot) : key(key), isRoot(isRoot) {}
    ~SystemHandle() override {
        if (!isRoot) RegCloseKey(key);
    }

    std::shared_ptr<MRegistryHandle> Open(const MString& name) const override {
        HKEY opened;
        const LSTATUS result = RegOpenKeyExW(key, MToWide(name).c_str(), 0, Access, &opened);
        return result == ERROR_SUCCESS ? std::make_shared<SystemHandle>(opened, false) : nullptr;
    }
    std::shared_ptr<MRegistryHandle> Create(const MString& name) const override {
        HKEY created;
        const LSTATUS result =
            RegCreateKeyExW(key, MToWide(name).c_str(), 0, nullptr, 0, Access, nullptr, &created, nullptr);
        return result == ERROR_SUCCESS ? std::make_shared<SystemHandle>(created, false) : nullptr;
    }
    bool Delete(const MString& name) const override {
        return RegDeleteKeyW(key, MToWide(name).c_str()) == ERROR_SUCCESS;
    }
    bool Read(const MString& name, MString& value) const override {
        const std::wstring native = MToWide(name);
        DWORD type = 0;
        DWORD size = 0;
        if (RegQueryValueExW(key, native.c_str(), nullptr, &type, nullptr, &size) != ERROR_SUCCESS)
            return false;
        std::vector<BYTE> data(size);
        if (RegQueryValueExW(key, native.c_str(), nullptr, &type, data.data(), &size) != ERROR_SUCCESS)
            return false;
        value = ToText(type, data);
        return true;
    }
    bool WriteText(const MString& name, const MString& text) override {
        const std::wstring wide = MToWide(text);
        return Write(name, REG_SZ, wide.c_str(), (wide.size() + 1) * sizeof(wchar_t));
    }
    bool WriteNumber(const MString& name, int32_t number) override {
        return Write(name, REG_DWORD, &number, sizeof(number));
    }

private:
    [[nodiscard]] bool Write(const MString& name, DWORD type, const void* data, size_t size) const {
        return RegSetValueExW(key, MToWide(name).c_str(), 0, type, static_cast<const BYTE*>(data),
                              static_cast<DWORD>(size)) == ERROR_SUCCESS;
    }

    const HKEY key;
    const bool isRoot;
};

}  // namespace

std::shared_ptr<MRegistryHandle> MRegistryHandle::OpenRoot(MRegistryRoot root) {
    return std::make_shared<SystemHandle>(GetRoot(root), true);
}
