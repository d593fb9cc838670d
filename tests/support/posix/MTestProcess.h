#pragma once

#include "tests/support/MTestProgram.h"

#include <cstdio>
#include <memory>
#include <sys/types.h>

/// Whom a program runs as that must not reach the machine's own folders.
constexpr uid_t MOrdinaryUser = 65534;

/// A program that runs as `MRunTestProgram` says.
class MTestProcess {
public:
    /// `prepare` is called in the new process, right before the program takes its place.
    MTestProcess(const MString& program, const MList<MString>& arguments, const MString& directory,
                 const MString& home, bool asOrdinaryUser, void (*prepare)());

    [[nodiscard]] pid_t GetId() const { return id; }
    /// What it has left, when it has ended with a status of `waitpid`. The exit code of a program that a
    /// signal has ended is the negative number of the signal.
    [[nodiscard]] MProgramResult GetResult(int status) const;

private:
    using TemporaryFile = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

    TemporaryFile output{std::tmpfile(), std::fclose};
    TemporaryFile errors{std::tmpfile(), std::fclose};
    pid_t id = -1;
};
