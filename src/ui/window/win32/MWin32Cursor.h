#pragma once

#include "foundation/win32/MWindowsHeader.h"
#include "ui/control/MCursor.h"
#include "ui/image/MGDIObject.h"

#include <array>
#include <memory>

/// A mouse pointer of the system.
class MWin32Cursor final : public MGDIObject {
public:
    /// With the colours of the picture where its alpha reaches `minalpha`, and transparent elsewhere; without
    /// a picture the system's own. Raises "Could not create system cursor." (0x300).
    explicit MWin32Cursor(const MCursor& cursor);
    ~MWin32Cursor() override;

    /// Null for the one that is not to be seen.
    [[nodiscard]] HCURSOR GetCursor() const { return reinterpret_cast<HCURSOR>(handle); }

private:
    bool isShared = false;  ///< the system's own
};

/// The pointers that a window has shown, made on first need.
class MWin32Cursors final : public MObject {
public:
    /// Under this they are kept with a root: "CURS".
    static constexpr uint32_t Key = 0x53525543;

    /// Raises what `MWin32Cursor` raises.
    [[nodiscard]] HCURSOR Get(const MCursor& cursor);

private:
    struct Entry {
        MCursor source;  ///< shares its pixels, so that another picture is told by another address
        std::unique_ptr<MWin32Cursor> cursor;
    };

    std::array<Entry, MEnumNames<MStdCursor>.size()> entries;
};
