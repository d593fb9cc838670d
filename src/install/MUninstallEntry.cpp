#include "install/MUninstallEntry.h"

#include "foundation/MFile.h"
#include "foundation/MGuard.h"
#include "foundation/MInstallationNames.h"
#include "foundation/MPlatform.h"
#include "foundation/MProductConstants.h"
#include "foundation/MRegistryKey.h"

namespace {

MRegistryKey OpenOrBegin() {
    MRegistryKey programs;
    try {
        programs.Open(MRegistryRoot::LocalMachine, MUninstallKeyName);
    } catch (const MException&) {
        // A system without a registry of its own has no list before the first program.
        if (!MGuard("MUninstallEntry",
                    [&] { programs.Create(MRegistryRoot::LocalMachine, MUninstallKeyName); }))
            throw;
    }
    return programs;
}

}  // namespace

void MUninstallEntry::Write() const {
    const MRegistryKey programs = OpenOrBegin();
    MRegistryKey program;
    program.Create(programs, key);
    const MString path = MPlatform::GetPathText(setup);
    program.SetValue("DisplayName", displayName);
    program.SetValue("InstallLocation", MFile::GetDirectory(path));
    program.SetValue("UninstallString", path);
    program.SetValue("DisplayIcon", path);
    program.SetValue("Publisher", MString(MProductMaker));
    program.SetValue("URLInfoAbout", MString(MProductWebAddress));
    program.SetValue("NoModify", 1);
    program.SetValue("NoRepair", 1);
}

void MUninstallEntry::Delete(const MString& key) {
    MRegistryKey programs;
    programs.Open(MRegistryRoot::LocalMachine, MUninstallKeyName);
    MRegistryKey::Delete(programs, key);
}
