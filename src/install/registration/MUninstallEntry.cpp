#include "install/registration/MUninstallEntry.h"

#include "foundation/MProductConstants.h"
#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"
#include "foundation/files/MInstallationNames.h"
#include "foundation/files/MRegistryKey.h"
#include "foundation/module/MPlatform.h"

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
