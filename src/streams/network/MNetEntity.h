#pragma once

#include "foundation/text/MString.h"

#include <cstdint>

/// An end of a connection: a host, by its name and its IPv4 address, and a port.
class MNetEntity {
public:
    /// Becomes this machine. Raises "Could not resolve host network name." (0x200).
    void ResolveLocalHost();
    /// Becomes the host of a name or of an address as `FormatAddress` gives it.
    /// Raises "Could not resolve network name \"{0}\"." (0x200) with the name.
    void Resolve(const MString& hostName);
    /// The address as "{0}.{1}.{2}.{3}".
    [[nodiscard]] MString FormatAddress() const;

    /// Whether name and address are valid.
    [[nodiscard]] bool IsResolved() const { return resolved; }
    [[nodiscard]] const MString& GetName() const { return name; }
    /// In network order, as it stands in memory.
    [[nodiscard]] uint32_t GetAddress() const { return address; }
    [[nodiscard]] uint16_t GetPort() const { return port; }
    void SetPort(uint16_t value) { port = value; }

private:
    bool resolved = false;
    MString name;
    uint32_t address = 0;
    uint16_t port = 0;
};
