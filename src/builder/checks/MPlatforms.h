#pragma once

#include "foundation/xml/MXMLItem.h"

#include <cstdint>

/// The platforms that an element of a definition exists on.
class MPlatforms {
public:
    /// `windows` decides for all, and `linux`, if it is there, for that one.
    explicit MPlatforms(const MXMLItem& element) {
        const int32_t windows = element.GetInt32Attribute("windows", 1);
        isOnWindows = windows != 0;
        isOnLinux = element.GetInt32Attribute("linux", windows) != 0;
    }

    [[nodiscard]] bool IsOnWindows() const { return isOnWindows; }
    [[nodiscard]] bool IsOnLinux() const { return isOnLinux; }
    [[nodiscard]] bool IsAnywhere() const { return isOnWindows || isOnLinux; }
    [[nodiscard]] bool Meets(const MPlatforms& other) const {
        return (isOnWindows && other.isOnWindows) || (isOnLinux && other.isOnLinux);
    }

private:
    bool isOnWindows;
    bool isOnLinux;
};
