#pragma once

#include "install/definition/MSetupSession.h"
#include "install/engine/MInstallWriter.h"
#include "install/run/MSetupLocks.h"

/// The installing itself, after every choice stands in the definition: directories, destinations, the files,
/// the program that removes them, its entry in the system's list of programs, the shortcuts, and last of all
/// the state, whose presence marks a run that reached its end.
class MInstallRun {
public:
    /// The session is not owned, nor is what the views point at; `views.dialogs` must not be null.
    MInstallRun(MSetupSession& session, const MInstallViews& views);

    /// Tests all that can be refused, before anything is written: the chosen directories, and what stands in
    /// the main one. Gives each available directory its macro, and each part its `currentpath`. Products
    /// whose names are in `replaced` will be removed before the installing begins. Raises `MRefusal`.
    void Check(const MList<MString>& replaced = MList<MString>());
    /// Checks again, keeps other setups away, looks once more at what they have left in the main directory,
    /// and creates each available directory; one that cannot be created is shown as an error, and the rest
    /// follow. Runs each time the installing is about to begin. Raises `MRefusal`, and what `MFolderLock`
    /// raises.
    void Enter();
    /// Installs, and lets other setups go on then. A failure leaves as `MException`: what was written stays,
    /// and there is no new "setup.state".
    void Perform();

    // What `Perform` has done so far, also if it has failed.

    /// The preset files that were left as they were.
    [[nodiscard]] const MList<MUnmergedPresets>& GetUnmerged() const { return unmerged; }
    /// The preset files that have new presets, as far as something changed in them, and their backups.
    [[nodiscard]] const MList<MMergedPresets>& GetMergedPresets() const { return merged; }
    /// What was installed where, in the order of the definition.
    [[nodiscard]] const MList<MInstalledPart>& GetInstalled() const { return installed; }

private:
    void SaveState();

    MSetupSession& session;
    MInstallViews views;
    MList<MString> directories;
    MList<MUnmergedPresets> unmerged;
    MList<MMergedPresets> merged;
    MList<MInstalledPart> installed;
    MString mainPath;  ///< the first available directory, else the maker's data
    std::unique_ptr<MSetupLocks> locks;
};
