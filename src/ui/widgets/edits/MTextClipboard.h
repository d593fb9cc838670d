#pragma once

#include "foundation/text/MString.h"

// Text on the clipboard of the system. On the thread of the user interface; nothing is raised, and without windows
// there is no clipboard.

/// Returns whether it is there now.
bool MCopyToClipboard(const MString& text);
/// Whether there is text to be had.
[[nodiscard]] bool MHasClipboardText();
/// What is there; empty for none.
[[nodiscard]] MString MGetClipboardText();
