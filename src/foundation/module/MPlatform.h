#pragma once

#include "foundation/base/MList.h"
#include "foundation/text/MString.h"

#include <cstdint>

/// What differs from platform to platform and is too small for a class of its own.
class MPlatform {
public:
    MPlatform() = delete;

    /// Name of the platform, as definitions write it: "windows" or "linux".
    [[nodiscard]] static MString GetName();
    /// Extension of programs, without a dot: "exe" or "run".
    [[nodiscard]] static MString ExecutableExtension();
    /// Whether the system, not this program, is one of 64 bits.
    [[nodiscard]] static bool Is64BitSystem();
    /// Whether paths begin at one root directory, "/", rather than at drives.
    [[nodiscard]] static bool HasRootDirectory();
    /// The executable that the process was started from, or the file of a library that was loaded as
    /// `instance`; in the platform's form, empty on failure.
    [[nodiscard]] static MString GetModulePath(void* instance);
    /// A path in the form in which other programs expect to read it: with backslashes where the system has
    /// them.
    [[nodiscard]] static MString GetPathText(const MString& path);
    /// The way back, for a path that another program or the user has written: a backslash that the system
    /// takes for a part of a name becomes one that nobody takes for a separator. The rest stays as it is.
    [[nodiscard]] static MString TakePathText(const MString& text);
    /// The first thing that a program does: an exception that nobody catches ends it with its text. Standard streams
    /// that are closed get something that gives and keeps nothing, or the first file that is opened would be taken for
    /// one of them. Where the system has them, signals that tell of a failed write give way to the failure, and what
    /// root creates others may not write into, whatever the mask of the caller says.
    static void PrepareProcess();
    /// What the library needs of the system for the whole run of a program, the network among it, and its
    /// end. Calls come in pairs, which may nest.
    static void StartSubsystems();
    static void StopSubsystems();
    static void Sleep(int32_t milliseconds);
};

/// The system's own words for its last failure in this thread, or "No error description available.".
[[nodiscard]] MString MSystemErrorText();
