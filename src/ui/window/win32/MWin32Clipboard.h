#pragma once

#include "foundation/base/MBuffer.h"
#include "foundation/text/MString.h"
#include "foundation/win32/MWindowsHeader.h"

/// The clipboard of the desktop, held from the construction to the end. Texts have the system's form on it:
/// UTF-16 with both characters at an end of a line.
class MWin32Clipboard final {
public:
    /// Waits a little for others that hold it. Raises "Error opening system clipboard. " (0).
    explicit MWin32Clipboard(HWND owner);
    MWin32Clipboard(const MWin32Clipboard&) = delete;
    MWin32Clipboard& operator=(const MWin32Clipboard&) = delete;
    ~MWin32Clipboard();

    [[nodiscard]] static bool Has(const MString& format);
    /// Replaces what is there. Raises "Error accessing clipboard. " or "System memory error occured. " (0).
    void Set(const MString& format, const MBuffer& data);
    /// Raises "No data present in clipboard. " or "Error accessing clipboard. " (0).
    [[nodiscard]] MBuffer Get(const MString& format);
};
