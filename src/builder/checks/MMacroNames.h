#pragma once

#include "foundation/text/MString.h"

/// The macros that every definition can use for the folders of a machine.
class MMacroNames {
public:
    MMacroNames() = delete;

    /// Of a name without braces: one of the folders, with or without "32" or "64" behind it.
    [[nodiscard]] static bool IsFolder(const MString& name);
    /// Whether the folder is known only where a configuration installs for 64 bits.
    [[nodiscard]] static bool IsX64Only(const MString& name) { return name.EndsWith("64"); }
};
