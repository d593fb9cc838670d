#pragma once

#include "foundation/base/MObject.h"
#include "foundation/text/MString.h"

#include <cstdint>

/// The folders that a machine has for its programs, their data and its users. The numbers are constant.
enum MSpecialFolder : int32_t {
    MSpecialFolderData = 0,
    MSpecialFolderUserData = 1,
    MSpecialFolderUser = 2,
    MSpecialFolderDocuments = 3,
    MSpecialFolderUserDocuments = 4,
    MSpecialFolderProgramFiles = 5,
    MSpecialFolderComponents = 6,
    MSpecialFolderStartMenu = 7,
    MSpecialFolderUserStartMenu = 8,
    MSpecialFolderStartMenuPrograms = 9,
    MSpecialFolderUserStartMenuPrograms = 10,
    MSpecialFolderDesktop = 11,
    MSpecialFolderUserDesktop = 12,
    MSpecialFolderSystem = 13,
    MSpecialFolderFonts = 14,
    MSpecialFolderDownloads = 15,
    MSpecialFolderMusic = 16,
    MSpecialFolderPictures = 17,
    MSpecialFolderVideo = 18,
    MSpecialFolderTemporary = 19,
    MSpecialFolderUserTemporary = 20,
};

inline constexpr int32_t MSpecialFolderCount = 21;

/// The folders' names in the order of their numbers.
inline constexpr const char* MSpecialFolderNames[MSpecialFolderCount] = {
    "data",
    "userdata",
    "user",
    "documents",
    "userdocuments",
    "programfiles",
    "components",
    "startmenu",
    "userstartmenu",
    "startmenuprograms",
    "userstartmenuprograms",
    "desktop",
    "userdesktop",
    "system",
    "fonts",
    "downloads",
    "music",
    "pictures",
    "video",
    "temporary",
    "usertemporary",
};

/// Whose the folder of a shared row is, on a platform that has two for each.
enum class MFolderOwner { Everybody, User };

/// Where the special folders are. The platform's own come from `MGetPlatformFolders`; tests install scratch
/// folders through `MFile::UseSpecialFolders`.
///
/// Windows takes them from the shell. Elsewhere the user's rows follow the XDG base directories and
/// user-dirs.dirs, and a shared row is the first directory of the table if this process may write there, else
/// the second:
///
/// | row                            | shared                         | the user's counterpart         |
/// |--------------------------------|--------------------------------|--------------------------------|
/// | data                           | /var/lib/<maker>               | $XDG_DATA_HOME/<maker>         |
/// | documents                      | /usr/local/share/documents     | the user's documents           |
/// | program files                  | /opt                           | ~/.local/opt                   |
/// | components                     | /usr/local/lib                 | ~/.local/lib                   |
/// | start menu, its programs       | /usr/local/share/applications  | $XDG_DATA_HOME/applications    |
/// | desktop                        | the user's desktop             |                                |
/// | system                         | /usr/local                     | ~/.local                       |
/// | fonts                          | /usr/local/share/fonts         | $XDG_DATA_HOME/fonts           |
class MSpecialFolders : public MObject {
public:
    /// Canonical path of a folder, empty if there is none. `MSpecialFolderUserTemporary` is never asked for:
    /// it lies below the user's data.
    [[nodiscard]] virtual MString GetPath(int32_t index) = 0;
    /// As above, but a shared row is the folder that belongs to `owner`, whatever this process may write to.
    /// The user is the one who owns the directory `installation`, if this process can act for others.
    [[nodiscard]] virtual MString GetPathOf(MFolderOwner /*owner*/, const MString& /*installation*/,
                                            int32_t index) {
        return GetPath(index);
    }
};

/// As long as it lives, `MFile::GetSpecialPath` gives the folders that an installation has found, which may
/// have been made by another user or with other rights.
class MFolderOwnerScope {
public:
    /// See `MSpecialFolders::GetPathOf`.
    MFolderOwnerScope(MFolderOwner owner, const MString& installation);
    MFolderOwnerScope(const MFolderOwnerScope&) = delete;
    MFolderOwnerScope& operator=(const MFolderOwnerScope&) = delete;
    ~MFolderOwnerScope();

    [[nodiscard]] MString GetPath(MSpecialFolders& folders, int32_t index) const {
        return folders.GetPathOf(owner, installation, index);
    }

private:
    const MFolderOwner owner;
    const MString installation;
    const MFolderOwnerScope* const outer;
};

/// The platform's folders; the object lives as long as the process.
[[nodiscard]] MSpecialFolders& MGetPlatformFolders();
