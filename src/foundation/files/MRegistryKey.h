#pragma once

#include "foundation/text/MString.h"

#include <cstdint>
#include <memory>

class MRegistryHandle;

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
    /// What a key stands below: a root or another key. A key that is not open raises "The registry key has
    /// not been opened.".
    struct Parent {
        Parent(MRegistryRoot root);
        Parent(const MRegistryKey& key);

        std::shared_ptr<const MRegistryHandle> handle;
    };

    MRegistryKey() = default;
    MRegistryKey(const MRegistryKey&) = delete;
    MRegistryKey& operator=(const MRegistryKey&) = delete;
    MRegistryKey(MRegistryKey&&) noexcept = default;
    MRegistryKey& operator=(MRegistryKey&&) noexcept = default;
    ~MRegistryKey() = default;

    /// Opens a key for reading and writing. Raises "Cannot open registry key {0}.".
    void Open(const Parent& parent, const MString& name);
    /// Opens a key, which is made if it is missing. Raises "Cannot create registry key {0}.".
    void Create(const Parent& parent, const MString& name);
    /// Deletes a key with its values. Raises "Cannot delete registry key {0}.", also if it has subkeys.
    static void Delete(const Parent& parent, const MString& name);
    void Close() { handle = nullptr; }
    [[nodiscard]] bool IsOpen() const { return handle != nullptr; }

    /// The value as text, a number in decimal. Raises "Cannot get registry value {0}" (without a full stop),
    /// and "The registry key has not been opened.".
    [[nodiscard]] MString GetValue(const MString& name) const;
    /// Raise "Cannot set registry value {0}.", and "The registry key has not been opened.".
    void SetValue(const MString& name, const MString& text);
    void SetValue(const MString& name, int32_t number);

private:
    void RequireOpen() const;

    std::shared_ptr<MRegistryHandle> handle;
};
