#pragma once

#include "setup/MFrontEnd.h"
#include "update/MUpdateSession.h"

/// An update without window, by its words:
///
///     silent update [packages=all|none|NAME,...] [check-only] [format=text|json]
///     silent [directory=PATH] [reinstall=yes|no] [format=text|json]
///
/// the first for an installed copy, the second for an update that is a program of its own. What is told goes to
/// standard output: lines, or at the end one JSON document (docs/unattended.md).
class MSilentUpdate {
public:
    enum class Kind { FromServer, Local };

    /// Relative paths are completed by `startDirectory`. Raises `MRefusal`, which names the word and what would be
    /// right, for one that is unknown or incomplete.
    MSilentUpdate(Kind kind, const MList<MString>& words, const MString& startDirectory);

    /// Asks the server of an installation, and installs unless only the offers are asked for. Raises what
    /// `MUpdateSession` raises, and `MRefusal` for a package that is not offered.
    [[nodiscard]] MExitCode Run(const MString& installation, MUserDialogs& dialogs) const;
    /// Installs the offer of a package over the installation that it belongs to, or that of the word. Raises likewise,
    /// and what `MFile::GetSoftwareInstallationPath` and `MLeaveInstalledProgram` raise.
    [[nodiscard]] MExitCode RunLocal(MLargeResourceLibrary& package, MUserDialogs& dialogs) const;

private:
    class Report;

    void ReadWord(Kind kind, const MString& word, const MString& startDirectory);
    [[nodiscard]] MList<int32_t> FindPackages(const MUpdateOffers::List& offered) const;

    bool wantsAllPackages = false;
    MList<MString> packages;
    bool isCheckOnly = false;
    bool isJSON = false;
    bool reinstalls = false;
    MString directory;  ///< empty for the one that the system knows
};
