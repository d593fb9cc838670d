#pragma once

#include "foundation/files/MRegistryKey.h"

/// An open key as the platform has it. What fails gives null or false, and `MRegistryKey` raises.
class MRegistryHandle {
public:
    MRegistryHandle() = default;
    MRegistryHandle(const MRegistryHandle&) = delete;
    MRegistryHandle& operator=(const MRegistryHandle&) = delete;
    virtual ~MRegistryHandle() = default;

    [[nodiscard]] static std::shared_ptr<MRegistryHandle> OpenRoot(MRegistryRoot root);

    // Keys below this one.
    [[nodiscard]] virtual std::shared_ptr<MRegistryHandle> Open(const MString& name) const = 0;
    [[nodiscard]] virtual std::shared_ptr<MRegistryHandle> Create(const MString& name) const = 0;
    [[nodiscard]] virtual bool Delete(const MString& name) const = 0;

    // Values of this key.
    [[nodiscard]] virtual bool Read(const MString& name, MString& value) const = 0;
    [[nodiscard]] virtual bool WriteText(const MString& name, const MString& text) = 0;
    [[nodiscard]] virtual bool WriteNumber(const MString& name, int32_t number) = 0;
};
