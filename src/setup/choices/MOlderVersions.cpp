#include "setup/choices/MOlderVersions.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MInstallationNames.h"
#include "foundation/xml/MXMLSubItems.h"

MOlderVersions::MOlderVersions(const MXMLItem& definition) {
    for (const MXMLItem& item : MXMLSubItems(definition, "uninstall"))
        MGuard("MOlderVersions", [&] {
            const MString directory = MFile::GetSoftwareInstallationPath(item.GetValue());
            versions.Add({item.GetValue(), MGetSetupPath(directory)});
        });
}

bool MOlderVersions::Remove(const MOlderVersion& version, MRemovalManner manner) {
    MList<MString> words;
    words.Add("uninstall");
    if (manner == MRemovalManner::Silent) words.Add("silent");
    int32_t exitCode = -1;
    MGuard("MOlderVersions", [&] { exitCode = MFile::Execute(version.setup, words, "", true); });
    return exitCode == 0;
}
