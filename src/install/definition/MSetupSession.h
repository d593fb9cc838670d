#pragma once

#include "install/definition/MPathMacros.h"
#include "payload/MLargeResourceLibrary.h"

/// What a walk through an installation shares besides the definition tree: the product's name, the
/// chosen configuration and the macros. The wizard's pages and the unattended run work on the same.
class MSetupSession {
public:
    /// Takes the name (required) of `definition`, which is not owned. There are no macros yet: making them
    /// creates a folder, and whoever refuses a run does so before. Raises what `MCheckItemNames` raises, and
    /// "Could not find required attribute ({0})." (0).
    explicit MSetupSession(MLargeResourceLibrary& definition);

    [[nodiscard]] MXMLItem& GetDefinition() const { return *Library; }
    /// The key under which an installation is registered: `installationname`, or the product's name.
    [[nodiscard]] MString GetInstallationName() const {
        return Library->GetAttribute("installationname", SoftwareName);
    }

    /// Rebuilds the macros of the special folders; those of directories are dropped. Raises `MRefusal` for a
    /// system whose folders have keys of macros in their names.
    void CreatePathMacros();
    /// Makes each available `directory` of the definition a macro. Gives their paths, in the order of the
    /// definition. Raises "Could not find required attribute ({0})." (0) for one without `id` or `path`.
    [[nodiscard]] MList<MString> AddDirectoryMacros();
    /// Writes the expanded `destination` of each enabled `files` and `copy` as its `currentpath`. Raises
    /// "Could not find required attribute (destination)." (0).
    void ExpandDestinations();

    MLargeResourceLibrary* Library;
    MString SoftwareName;
    MPathMacros Macros;
    /// `id` of the chosen configuration; empty until one is chosen.
    MString ConfigurationId;
    /// The program that the run has left behind, in the form of `MPlatform::GetPathText`; empty until then.
    MString InstalledExecutable;
    bool ShowComponents = true;
    bool AdminRights = true;
    bool UseX64 = false;
};
