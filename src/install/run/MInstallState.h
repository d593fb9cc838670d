#pragma once

#include "foundation/xml/MXMLItem.h"

/// Loads "setup.state" from `directory`, the folder of the running program, to remove or update what it tells
/// of. Only an installation in that same folder is believed: the state of a folder that was copied or moved
/// tells of files elsewhere. Raises what `MXMLItem::LoadFile` raises, "Could not find required attribute
/// ({0})." (0) for a state without `name` or `mainpath`, and `MRefusal` for the state of another folder, or
/// for one beside which the data of an installer lie: no installation leaves these.
void MLoadInstallState(const MString& directory, MXMLItem& state);

/// Under these names a program finds the data of an installer beside itself.
inline constexpr const char* MSetupDataNames[] = {"setup.dat", "setup.multi"};

/// The path of the installer data that lie in a folder, the first of them; empty if there are none.
[[nodiscard]] MString MFindSetupData(const MString& directory);
