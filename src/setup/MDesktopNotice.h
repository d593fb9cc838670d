#pragma once

#include "foundation/text/MString.h"

/// Shows a text where the desktop shows what programs have to say, if nobody would see it on standard error.
/// Does nothing where that is a terminal or the session has no such place, and takes a few seconds at most.
void MNotifyDesktop(const MString& title, const MString& text);
