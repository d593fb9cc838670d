#pragma once

#include "install/definition/MSetupSession.h"
#include "install/engine/MInstallViews.h"

/// The installing itself, after every choice stands in the definition: directories and their macros,
/// destinations, the files, the program that removes them, its entry in the system's list of programs, the
/// shortcuts, and last of all the state, whose presence marks a run that reached its end.
class MInstallRun {
public:
    /// Neither is owned. `views.dialogs` must not be null.
    MInstallRun(MSetupSession& session, const MInstallViews& views);

    /// Makes each available directory a macro and creates it; one that cannot be created is shown as an
    /// error, and the rest follow. Runs each time the installing is about to begin.
    void Enter();
    /// Installs. A failure leaves as `MException`: what was written stays, and there is no new "setup.state".
    void Perform();

    /// The first available directory: where the product's own files live.
    [[nodiscard]] const MString& GetMainPath() const { return mainPath; }

private:
    void ExpandDestinations();
    void ExpandDestination(MXMLItem& pass) const;
    /// Leaves a copy of this program without its payload in the main path.
    void CopySetup();
    void Register() const;
    void CreateShortcuts() const;
    void SaveState();

    MSetupSession& session;
    MInstallViews views;
    MString mainPath;
};
