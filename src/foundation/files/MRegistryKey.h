#pragma once

#include "foundation/text/MString.h"

#include <cstdint>
#include <memory>

/// Roots under which keys stand.
enum class MRegistryRoot { ClassesRoot, CurrentUser, LocalMachine };

/// A key of the registry: a tree of named keys, each with named values, for what programs tell the system.
/// Names ignore case; a backslash leads from a key to its subkey.
///
/// Where the system has no registry the tree is kept as small files in the directory "registry" of the
/// shared data (of the user's for `CurrentUser`).
/// Failures raise an `MException` with code 0 and the text given with each operation, {0} being the name.
class MRegistryKey {
public:
    /// What a key stands below: a root or an open key.
    struct Parent {
        Parent(MRegistryRoot root) : root(root) {}
        Parent(const MRegistryKey& key) : key(&key) {}

        MRegistryRoot root = MRegistryRoot::LocalMachine;
        const MRegistryKey* key = nullptr;
    };

    MRegistryKey();
    MRegistryKey(MRegistryKey&& other) noexcept;
    MRegistryKey& operator=(MRegistryKey&& other) noexcept;
    ~MRegistryKey();

    /// Opens for reading and writing. Raises "Cannot open registry key {0}.".
    void Open(Parent parent, const MString& name);
    /// Opens a key, which is made if it is missing. Raises "Cannot create registry key {0}.".
    void Create(Parent parent, const MString& name);
    /// Deletes a key with its values. Raises "Cannot delete registry key {0}.", also if it has subkeys.
    static void Delete(Parent parent, const MString& name);
    void Close();
    [[nodiscard]] bool IsOpen() const { return handle != nullptr; }

    /// The value as text, a number in decimal. Raises "Cannot get registry value {0}" (without a full stop).
    [[nodiscard]] MString GetValue(const MString& name) const;
    /// Raises "Cannot set registry value {0}.".
    void SetValue(const MString& name, const MString& text);
    void SetValue(const MString& name, int32_t number);

private:
    /// The platform's idea of an open key.
    struct Handle;

    /// Raises "The registry key has not been opened.".
    [[nodiscard]] Handle& GetHandle() const;

    std::unique_ptr<Handle> handle;
};
