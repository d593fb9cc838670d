#include "setup/MDesktopNotice.h"

/// There are always windows.
void MNotifyDesktop(const MString&, const MString&) {}
