#pragma once

#include "foundation/win32/MWindowsHeader.h"
#include "ui/image/MColor.h"
#include "ui/image/MGDIObject.h"

class MAlphaMask;

// What GDI draws with, each deleted at its end.

class MWin32Pen final : public MGDIObject {
public:
    /// Solid; `width` in pixels. Raises "Could not create system pen." (0x300).
    explicit MWin32Pen(MColor color, int32_t width = 1);
    ~MWin32Pen() override;
};

class MWin32Brush final : public MGDIObject {
public:
    /// Hollow: fills nothing. Raises "Could not create hollow brush." (0x300).
    MWin32Brush();
    /// Raises "Could not create solid brush." (0x300).
    explicit MWin32Brush(MColor color);
    ~MWin32Brush() override;
};

/// A set of pixels.
class MWin32Region final : public MGDIObject {
public:
    /// All pixels of the mask that are above 0. Raises "Could not create rectangular region." (0x300).
    explicit MWin32Region(const MAlphaMask& mask);
    ~MWin32Region() override;

    [[nodiscard]] HRGN GetRegion() const { return reinterpret_cast<HRGN>(handle); }
    /// Leaves the region to the system.
    void Release() { handle = 0; }
};
