#pragma once

#include "foundation/text/MString.h"

/// The folders of the user who runs the process, by the XDG base directory specification and the file
/// user-dirs.dirs of xdg-user-dirs. Everything is read when it is asked for. Paths are canonical.
class MUserFolders {
public:
    MUserFolders();
    /// The folders of the user who owns a file, if this process may act for others and that user has a home.
    /// They are found where they are by default, since that user's variables are not known.
    [[nodiscard]] static MUserFolders OfOwner(const MString& path);

    [[nodiscard]] const MString& GetHome() const { return home; }
    /// $XDG_DATA_HOME, or ".local/share".
    [[nodiscard]] MString GetData() const;
    /// What user-dirs.dirs says for "DOCUMENTS", "DESKTOP" and so on, or the directory of that name in the
    /// user's home.
    [[nodiscard]] MString GetNamed(const char* key, const char* defaultName) const;

private:
    explicit MUserFolders(const MString& home) : home(home), isOwn(false) {}

    /// A directory that a variable names by an absolute path, or one in the user's home.
    [[nodiscard]] MString GetBase(const char* variable, const char* defaultName) const;

    MString home;
    bool isOwn = true;
};
