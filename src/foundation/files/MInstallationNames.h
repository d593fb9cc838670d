#pragma once

#include "foundation/files/MFile.h"
#include "foundation/module/MPlatform.h"

/// The key below the machine's root under which every installed program has a subkey of its own.
inline constexpr const char* MUninstallKeyName = "software\\microsoft\\windows\\currentversion\\uninstall";

/// What an installation has in its main directory: the definition with every choice that was made.
[[nodiscard]] inline MString MGetStatePath(const MString& directory) {
    return MFile::Join(directory, "setup.state");
}

/// And beside it: the program that removes and updates it.
[[nodiscard]] inline MString MGetSetupPath(const MString& directory) {
    return MFile::Join(directory, MString("setup.") + MPlatform::ExecutableExtension());
}

/// While an update is fetched: what has come of it.
[[nodiscard]] inline MString MGetFetchedUpdatePath(const MString& directory) {
    return MFile::Join(directory, "setup.update");
}

/// The file that tells other update managers so.
inline constexpr const char* MUpdateLockName = "setup.update.lock";
