#pragma once

#include "install/run/MInstallRun.h"
#include "payload/MLargeResourceLibrary.h"
#include "setup/choices/MComponentRows.h"
#include "setup/choices/MConfigurationChoice.h"
#include "setup/choices/MDirectoryChoices.h"
#include "setup/choices/MUpdateOffer.h"
#include "setup/console/MUnattendedOptions.h"

/// An installation without window: the walk through the wizard with every page left as proposed, but
/// for what the words of the command line say.
class MUnattendedRun {
public:
    /// The definition, the options and what the views point at are not owned. Raises "Could not find required
    /// attribute ({0})." (0) for a broken definition.
    MUnattendedRun(MLargeResourceLibrary& definition, const MUnattendedOptions& options,
                   const MInstallViews& views);

    /// Tests the definition and the words against it before anything is written. Raises `MRefusal` for a last
    /// page that is missing, for a licence that is not accepted, for an id or a component that the definition
    /// does not have, and for a configuration that does not run here; and "Could not find required attribute
    /// (destination)." (0).
    void Validate();
    /// Installs. Raises what stopped it, `MRefusal` before anything was written.
    void Perform();
    /// See `MInstallRun::GetUnmerged`.
    [[nodiscard]] const MList<MUnmergedPresets>& GetUnmerged() const { return run.GetUnmerged(); }
    /// Starts the programs of the last page that the wizard would show: "onsuccess", or "onerror" if
    /// `Perform` has failed, which has been told.
    void Conclude(bool isDone);

private:
    /// The chosen one, or null if there is none.
    [[nodiscard]] const MXMLItem* GetConfiguration() const;
    void ChooseComponents();
    void ChooseDirectories();
    void RemoveOlderVersions();
    void StartPrograms(const char* page, const MPathMacros& macros);

    const MUnattendedOptions& options;
    MInstallViews views;
    MSetupSession session;
    MConfigurationChoice configurations;
    MComponentRows components;
    MDirectoryChoices directories;
    MUpdateOffer updateOffer;
    MInstallRun run;
};
