#include "setup/console/MUnattendedRun.h"

#include "install/run/MInstallRun.h"
#include "setup/MRefusal.h"
#include "setup/choices/MOlderVersions.h"

MUnattendedRun::MUnattendedRun(MLargeResourceLibrary& definition, const MUnattendedOptions& options,
                               const MInstallViews& views)
    : options(options),
      views(views),
      session(definition),
      configurations(definition),
      components(definition),
      directories(session) {}

void MUnattendedRun::Validate() {
    if (session.GetDefinition().FindSubItem("licence") && !options.AcceptLicence)
        MRefuse(
            "The licence of {0} has not been accepted. Read it, and if you agree, add the word accept-licence.",
            session.SoftwareName);
    if (options.Configuration && !configurations.Find(*options.Configuration))
        MRefuse("{0} has no configuration \"{1}\".", session.SoftwareName, *options.Configuration);
    ValidateComponents();
    for (const MNamedChoice& directory : options.Directories)
        if (!directories.Find(directory.Name))
            MRefuse("{0} has no directory \"{1}\" to choose.", session.SoftwareName, directory.Name);
}

void MUnattendedRun::ValidateComponents() {
    for (const MNamedChoice& component : options.Components)
        if (!components.Find(component.Name))
            MRefuse("{0} has no component \"{1}\" to choose.", session.SoftwareName, component.Name);
}

void MUnattendedRun::Perform() {
    if (options.RemoveOlder) RemoveOlderVersions();
    ChooseConfiguration();
    ChooseComponents();
    ChooseDirectories();
    MInstallRun run(session, views);
    run.Enter();
    run.Perform();
}

void MUnattendedRun::RemoveOlderVersions() {
    const MOlderVersions older(session.GetDefinition());
    for (const MOlderVersion& version : older.GetVersions()) {
        views.ShowInfo(MFormat(MTranslate("Removing {0}..."), version.name));
        if (MOlderVersions::Remove(version, true)) continue;
        views.dialogs->ShowError(MFormat(MTranslate("{0} could not be removed completely by \"{1}\"."),
                                         version.name, version.setup));
    }
}

void MUnattendedRun::ChooseConfiguration() {
    const MXMLItem* chosen =
        options.Configuration ? configurations.Find(*options.Configuration) : configurations.GetProposal();
    if (chosen && !configurations.Apply(*chosen, session))
        MRaise(MExceptionGeneral, MConfigurationNeeds64Bit);
}

void MUnattendedRun::ChooseComponents() {
    components.ApplyConfiguration(session.ConfigurationId);
    for (const MNamedChoice& component : options.Components)
        components.Find(component.Name)->Checked = component.Text == "on";
    components.Store();
}

void MUnattendedRun::ChooseDirectories() {
    if (!session.GetDefinition().FindSubItem("directory")) return session.CreatePathMacros();
    directories.LoadDefaults();
    for (const MNamedChoice& directory : options.Directories)
        directories.Find(directory.Name)->Path = directory.Text;
    directories.UpdateAvailability();
    directories.Store();
}
