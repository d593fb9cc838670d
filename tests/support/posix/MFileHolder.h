#pragma once

#include "foundation/text/MStringFormatter.h"

#include <cerrno>
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

/// A process of its own that has open and mapped what this one had when the object was made.
class MFileHolder {
public:
    MFileHolder() : id(fork()) {
        while (id == 0) pause();
    }
    MFileHolder(const MFileHolder&) = delete;
    MFileHolder& operator=(const MFileHolder&) = delete;
    ~MFileHolder() {
        kill(id, SIGKILL);
        waitpid(id, nullptr, 0);
    }

    /// As people are told of it.
    [[nodiscard]] MString GetName() const {
        return MFormat("{0} ({1})", MString::Copy(program_invocation_short_name), id);
    }

private:
    const pid_t id;
};
