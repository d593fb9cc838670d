#include "foundation/files/posix/MUserName.h"

#include "foundation/files/posix/MNativePath.h"

#include <array>
#include <pwd.h>
#include <string>

MString MGetUserName(uid_t user) {
    std::array<char, 4096> text;
    passwd entry;
    passwd* found = nullptr;
    const bool isKnown = getpwuid_r(user, &entry, text.data(), text.size(), &found) == 0 && found;
    return MPathFromNative(isKnown ? entry.pw_name : std::to_string(user));
}
