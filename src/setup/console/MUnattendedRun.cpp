#include "setup/console/MUnattendedRun.h"

#include "install/run/MInstallRun.h"
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
    const MString& product = session.SoftwareName;
    if (session.GetDefinition().FindSubItem("licence") && !options.acceptLicence)
        MRefuse("The licence of {0} has not been accepted. Read it, and if you agree, add the word "
                "accept-licence.",
                product);
    if (options.configuration && !configurations.Find(*options.configuration))
        MRefuse("{0} has no configuration \"{1}\".", product, *options.configuration);
    for (const MNamedChoice& component : options.components)
        if (!components.Find(component.name))
            MRefuse("{0} has no component \"{1}\" to choose.", product, component.name);
    for (const MNamedChoice& directory : options.directories)
        if (!directories.Find(directory.name))
            MRefuse("{0} has no directory \"{1}\" to choose.", product, directory.name);
}

void MUnattendedRun::Perform() {
    if (options.removeOlder) RemoveOlderVersions();

    const MXMLItem* chosen =
        options.configuration ? configurations.Find(*options.configuration) : configurations.GetProposal();
    if (chosen) configurations.Apply(*chosen, session);

    components.ApplyConfiguration(session.ConfigurationId);
    for (const MNamedChoice& component : options.components)
        components.Find(component.name)->checked = component.text == "on";
    components.Store();

    ChooseDirectories();
    MInstallRun run(session, views);
    run.Enter();
    run.Perform();
}

void MUnattendedRun::RemoveOlderVersions() {
    const MOlderVersions older(session.GetDefinition());
    for (const MOlderVersion& version : older.GetVersions()) {
        views.ShowInfo(MFormat(MTranslate("Removing {0}..."), version.name));
        if (MOlderVersions::Remove(version, MRemovalManner::Silent)) continue;
        views.dialogs->ShowError(MFormat(MTranslate("{0} could not be removed completely by \"{1}\"."),
                                         version.name, version.setup));
    }
}

void MUnattendedRun::ChooseDirectories() {
    if (!session.GetDefinition().FindSubItem("directory")) return session.CreatePathMacros();
    directories.LoadDefaults();
    for (const MNamedChoice& directory : options.directories)
        directories.Find(directory.name)->path = directory.text;
    directories.UpdateAvailability();
    directories.Store();
}
