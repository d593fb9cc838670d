#pragma once

#include "foundation/text/MString.h"
#include "foundation/values/MValueEnum.h"

#include <cstdint>

/// How the user wants to see a folder, kept in it as ".dirsettings": a document "DirectorySettings" with the attribute
/// "order". The file may be damaged or made by anybody; what does not fit is left out.
struct MFolderSettings {
    enum class Order : int32_t { Name, Time, Size };

    /// Reads what a folder has, at most a few kilobytes. Raises nothing.
    void Load(const MString& directory);
    /// Where the folder can be written to, in silence. What stands there and is no plain file stays.
    void Save(const MString& directory) const;

    Order order = Order::Name;
};

inline constexpr const char* MFolderOrderNames[] = {"name", "time", "size"};
template <>
inline constexpr std::span<const char* const> MEnumNames<MFolderSettings::Order> = MFolderOrderNames;
