#pragma once

#include "install/definition/MItemNames.h"
#include "install/definition/MPathMacros.h"
#include "payload/MLargeResourceLibrary.h"

/// What a walk through an installation shares besides the definition tree: the product's name, the
/// chosen configuration and the macros. The wizard's pages and the unattended run work on the same.
class MSetupSession {
public:
    /// Takes the name (required) of `definition`, which is not owned. There are no macros yet: making them
    /// creates a folder, and whoever refuses a run does so before. Raises what `MCheckItemNames` raises, and
    /// "Could not find required attribute ({0})." (0).
    explicit MSetupSession(MLargeResourceLibrary& definition)
        : Library(&definition), SoftwareName(definition.GetAttribute("name")) {
        MCheckItemNames(definition);
    }

    [[nodiscard]] MXMLItem& GetDefinition() const { return *Library; }
    void CreatePathMacros() { Macros.CreatePathMacros(UseX64); }
    /// The key under which an installation is registered: `installationname`, or the product's name.
    [[nodiscard]] MString GetInstallationName() const {
        return Library->GetAttribute("installationname", SoftwareName);
    }

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
