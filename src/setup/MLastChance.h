#pragma once

#include "foundation/text/MString.h"

/// Has processor faults of the process end with a message to the user and the exit code -1. In an
/// unattended run the message goes to standard error and nobody is waited for.
void MWatchForProcessorFaults(bool isUnattended);

/// The message for a failure that nothing else can show any more.
void MShowLastChanceMessage(const MString& text);
