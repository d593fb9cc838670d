#pragma once

#include "foundation/base/MList.h"
#include "foundation/text/MString.h"

#include <string>

/// What a program that a test ran has left.
struct MProgramResult {
    int32_t exitCode = -1;
    std::string output;  ///< standard output, as bytes
    std::string errors;  ///< standard error, as bytes
};

/// Runs a program with standard input closed, in `directory`, and waits for its end. Its home and its
/// temporary folder lie in `home`. Where the tests run as root it runs as an ordinary user, unless told
/// otherwise, so that it cannot reach the machine's own folders; `home` must then be open for everybody.
[[nodiscard]] MProgramResult MRunTestProgram(const MString& program, const MList<MString>& arguments,
                                             const MString& directory, const MString& home,
                                             bool asOrdinaryUser = true);

/// Makes a file or directory the property of that user. Raises "Could not give \"{0}\" away." (0).
void MGiveToTestUser(const MString& path);

/// The maker's folder of user data and the folder of the start menu's programs, as that program sees them.
/// Only on Linux they lie in `home`.
[[nodiscard]] MString MTestUserData(const MString& home);
[[nodiscard]] MString MTestPrograms(const MString& home);
