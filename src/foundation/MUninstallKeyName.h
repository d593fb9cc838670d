#pragma once

/// The key below the machine's root under which every installed program has a subkey of its own.
inline constexpr const char* MUninstallKeyName = "software\\microsoft\\windows\\currentversion\\uninstall";
