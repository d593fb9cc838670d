#pragma once

#include "foundation/views/MUserDialogs.h"
#include "payload/MLargeResourceLibrary.h"
#include "update/MDownloadDefinition.h"

#include <cstdint>

/// What the process tells its caller. A run with window exits with 0 on every ordinary path, and with -1
/// when the user declines to go on with damaged data; the other codes are those of an unattended run.
enum MExitCode : int32_t {
    MExitDeclined = -1,
    MExitDone = 0,
    MExitFailed = 1,      ///< the run failed; its text is on standard error
    MExitRefused = 2,     ///< refused before anything was written
    MExitIncomplete = 3,  ///< installed or removed, but for what is listed
    MExitOffered = 5,     ///< there are updates or packages, and only that was asked
};

/// How a process meets its user: through windows, or without any by the words of its command line and lines
/// on the standard streams. A process has one, chosen when it starts; nobody asks which it is. Called on the
/// main thread.
class MFrontEnd {
public:
    virtual ~MFrontEnd() noexcept(false) = default;

    /// What is asked and told beside the run modes.
    [[nodiscard]] virtual MUserDialogs& GetDialogs() = 0;

    // The run modes. Each runs to its end and gives the exit code of the process.

    /// Installs the product of a definition. May raise what makes of the data no definition.
    [[nodiscard]] virtual MExitCode Install(MLargeResourceLibrary& definition) = 0;
    /// Installs an update package over what it belongs to.
    [[nodiscard]] virtual MExitCode InstallUpdate(MLargeResourceLibrary& package) = 0;
    /// Looks for updates of the installation whose "setup.state" is in `directory`.
    [[nodiscard]] virtual MExitCode Update(const MString& directory) = 0;
    /// Removes the installation whose "setup.state" is in `directory`.
    [[nodiscard]] virtual MExitCode Remove(const MString& directory) = 0;
    /// Fetches a package into the directory that bears the name of `program` without its extension.
    [[nodiscard]] virtual MExitCode Download(const MDownloadDefinition& definition,
                                             const MString& program) = 0;

    /// What the process gives when there are no data to run with, which the user has been told.
    [[nodiscard]] virtual MExitCode GetFailureCode() const = 0;
    /// What it gives when the user does not want to go on with damaged data.
    [[nodiscard]] virtual MExitCode GetDeclinedCode() const = 0;
};
