#include "setup/MLastChance.h"

#include "foundation/MProductConstants.h"
#include "streams/basic/MConsole.h"

#include <csignal>
#include <cstdio>
#include <unistd.h>

namespace {

/// Only what is safe inside a signal handler.
void EndWithMessage(int signalNumber) {
    char message[512];
    const int length = std::snprintf(
        message, sizeof message,
        "An exception has occured in the application, code %x. Please make an screenshot and send it "
        "to %s .\n",
        static_cast<unsigned>(signalNumber), MProductSupportAddress);
    if (length > 0) (void)!write(STDERR_FILENO, message, static_cast<size_t>(length));
    _exit(-1);
}

}  // namespace

void MWatchForProcessorFaults(bool /*isUnattended*/) {
    for (const int fault : {SIGSEGV, SIGBUS, SIGFPE, SIGILL}) std::signal(fault, EndWithMessage);
}

void MShowLastChanceMessage(const MString& text) {
    (void)MWriteConsoleText(stderr, text + "\n");
}
