#include "setup/console/MUnattendedRun.h"

#include "setup/choices/MOlderVersions.h"

MUnattendedRun::MUnattendedRun(MLargeResourceLibrary& definition, const MUnattendedOptions& options,
                               const MInstallViews& views)
    : options(options),
      views(views),
      session(definition),
      configurations(definition),
      components(definition),
      directories(session),
      updateOffer(definition),
      run(session, views) {}

void MUnattendedRun::Validate() {
    for (const char* page : {"onsuccess", "onerror", "onabort"})
        if (!session.GetDefinition().FindSubItem(page))
            MRefuse("Could not find required subitem ({0}).", page);
    for (const char* page : {"onstart", "onsuccess", "onerror"})
        if (const MXMLItem* found = session.GetDefinition().FindSubItem(page))
            MExecuteChoices(*found).Validate();
    const MString& product = session.SoftwareName;
    if (session.GetDefinition().FindSubItem("licence") && !options.acceptLicence)
        MRefuse("The licence of {0} has not been accepted. Read it, and if you agree, add the word "
                "accept-licence.",
                product);
    if (options.configuration && !configurations.Find(*options.configuration))
        MRefuse("{0} has no configuration \"{1}\".", product, *options.configuration);
    const MXMLItem* configuration = GetConfiguration();
    if (configuration && !configurations.IsAvailable(*configuration))
        MRefuse("This configuration does not support 32-bit operating system.");
    for (const MNamedChoice& component : options.components)
        if (!components.Find(component.name))
            MRefuse("{0} has no component \"{1}\" to choose.", product, component.name);
    for (const MNamedChoice& directory : options.directories)
        if (!directories.Find(directory.name))
            MRefuse("{0} has no directory \"{1}\" to choose.", product, directory.name);
}

void MUnattendedRun::Perform() {
    ChooseComponents();
    ChooseDirectories();
    options.removeOlder ? RemoveOlderVersions() : run.Check();
    // A program of a page may be another setup: none starts while this one keeps others away.
    MPathMacros macrosAtStart;
    macrosAtStart.CreatePathMacros(false);
    StartPrograms("onstart", macrosAtStart);
    run.Enter();
    directories.Remember();
    run.Perform();
}

void MUnattendedRun::ChooseComponents() {
    if (const MXMLItem* configuration = GetConfiguration()) configurations.Apply(*configuration, session);
    components.ApplyConfiguration(session.ConfigurationId);
    for (const MNamedChoice& component : options.components)
        components.Find(component.name)->checked = component.text == "on";
    components.Store();
}

const MXMLItem* MUnattendedRun::GetConfiguration() const {
    return options.configuration ? configurations.Find(*options.configuration) : configurations.GetProposal();
}

void MUnattendedRun::ChooseDirectories() {
    if (!session.GetDefinition().FindSubItem("directory")) return session.CreatePathMacros();
    directories.LoadDefaults();
    for (const MNamedChoice& directory : options.directories)
        directories.Find(directory.name)->path = directory.text;
    directories.UpdateAvailability();
    directories.Store();
}

void MUnattendedRun::RemoveOlderVersions() {
    const MOlderVersions older(session.GetDefinition());
    MList<MString> names;
    for (const MOlderVersion& version : older.GetVersions()) names.Add(version.name);
    // What would be refused afterwards is refused while everything still stands.
    run.Check(names);
    for (const MOlderVersion& version : older.GetVersions()) {
        views.ShowInfo(MFormat(MTranslate("Removing {0}..."), version.name));
        if (MOlderVersions::Remove(version, MRemovalManner::Silent)) continue;
        views.dialogs->ShowError(MFormat(MTranslate("{0} could not be removed completely by \"{1}\"."),
                                         version.name, version.setup));
    }
    // A folder that was proposed because it was there may be gone.
    ChooseDirectories();
}

void MUnattendedRun::Conclude(bool isDone) {
    StartPrograms(isDone ? "onsuccess" : "onerror", session.Macros);
}

void MUnattendedRun::StartPrograms(const char* page, const MPathMacros& macros) {
    if (const MXMLItem* found = session.GetDefinition().FindSubItem(page))
        MExecuteChoices(*found, options.execute).Finish(macros, *views.dialogs);
}
