#pragma once

#include "foundation/text/MString.h"

#include <cerrno>
#include <memory>
#include <string>

/// What becomes of a link under the last name of a path.
enum class MLastLink {
    Keep,    ///< the link itself is meant
    Follow,  ///< what it leads to is meant
};

/// The way to a file that is to be created, changed or deleted: an open folder and a name in it, for the
/// calls of the system that take both. The path is walked folder by folder. A link on it is followed only if
/// it belongs to this user or to root: anybody could have planted another, to lead the writing of a more
/// powerful user elsewhere. What becomes of the path after the walk does not matter any more.
///
/// The last folder is remembered in each thread, so that the many files of one folder cost one walk.
class MFileWay {
public:
    /// Raises "The link \"{0}\" is not followed: it belongs to another user ({1})." (0) with the user's name
    /// or number. A folder that is missing or cannot be entered lets the calls fail.
    explicit MFileWay(const MString& path, MLastLink lastLink = MLastLink::Keep);

    /// Makes a call of the system with the open folder and the name, and gives its result; -1 with the reason
    /// in `errno` where there is no folder.
    template <class Call>
    int Do(Call call) const {
        errno = error;
        return folder ? call(*folder, name.c_str() + nameStart) : -1;
    }

private:
    std::shared_ptr<const int> folder;
    std::string name;  ///< in the folder, behind `nameStart` bytes of its path
    size_t nameStart = 0;
    int error = 0;
};
