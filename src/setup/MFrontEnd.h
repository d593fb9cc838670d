#pragma once

#include "foundation/views/MUserDialogs.h"
#include "payload/MLargeResourceLibrary.h"
#include "setup/MExitCode.h"
#include "update/MDownloadDefinition.h"

/// How a process meets its user: through windows, or without any by the words of its command line and lines on the
/// standard streams. A process has one, chosen when it starts; nobody asks which it is. Called on the main thread.
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
