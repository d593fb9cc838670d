#include "setup/console/MInterruption.h"

#include <csignal>

namespace {

volatile std::sig_atomic_t isRequested = 0;

void Remember(int) {
    isRequested = 1;
}

void Handle(int signalNumber) {
    struct sigaction action = {};
    action.sa_handler = Remember;
    action.sa_flags = static_cast<int>(SA_RESETHAND) | SA_RESTART;
    sigaction(signalNumber, &action, nullptr);
}

}  // namespace

MInterruption::MInterruption() {
    isRequested = 0;
    Handle(SIGINT);
    Handle(SIGTERM);
}

MInterruption::~MInterruption() {
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
}

bool MInterruption::IsRequested() const {
    return isRequested != 0;
}
