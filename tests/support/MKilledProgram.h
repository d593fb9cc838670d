#pragma once

#include "tests/support/MTestProgram.h"

/// How far a program came.
struct MKilledProgramResult {
    int32_t operationCount = 0;  ///< operations on files that it has begun
    bool isKilled = false;
    MProgramResult program;
};

/// What becomes of a program at one of its operations on files.
enum class MDisturbance {
    Kill,      ///< it is killed at once, without any clean-up, in place of the operation
    FullDisk,  ///< the disk is full from there on: what would need space fails
};

/// Runs a program as `MRunTestProgram` does, and disturbs it at the operation with the number
/// `fatalOperation`, counted from 1; 0 lets it run to its end. Counted are the calls of the system that
/// change what the disk holds: creating, writing, syncing, renaming, deleting and the like. Fails the test if
/// this machine does not let one program watch another.
[[nodiscard]] MKilledProgramResult MRunKilledProgram(const MString& program, const MList<MString>& arguments,
                                                     const MString& directory, const MString& home,
                                                     int32_t fatalOperation,
                                                     MDisturbance disturbance = MDisturbance::Kill);
