#pragma once

#include "foundation/win32/MWindowsHeader.h"

class MControl;

/// What the windows of this program say to themselves, beside the messages of the system. They are posted.
enum MWindowMessage : UINT {
    MWindowMessageEndLoop = 0x400,  ///< ends the loop of the root whose address is in lParam
    MWindowMessageShow = 0x402,
    MWindowMessageHide = 0x403,
};

/// The one window procedure: the table of what is done on which message of the system.
LRESULT CALLBACK MWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

/// The root of a window; null for windows of others.
[[nodiscard]] MControl* MGetWindowRoot(HWND window);
