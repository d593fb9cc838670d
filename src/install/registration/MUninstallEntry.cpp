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

/// Where the subkey of an installation is; if it has none, where one would be.
struct Finding {
    MFolderOwner owner;
    bool isOfAnother;
};

Finding Find(const MString& key, const MString& mainPath, const MList<MFolderOwner>& owners) {
    bool isOfAnother = false;
    for (const MFolderOwner owner : owners) {
        const MFolderOwnerScope scope(owner, mainPath);
        MRegistryKey programs;
        MRegistryKey program;
        if (!MGuard("MUninstallEntry", [&] {
                programs.Open(MRegistryRoot::LocalMachine, MUninstallKeyName);
                program.Open(programs, key);
            }))
            continue;
        MString location = mainPath;
        MGuard("MUninstallEntry", [&] {
            location = MFile::Normalize(MPlatform::TakePathText(program.GetValue("InstallLocation")));
        });
        if (MFile::IsSame(location, mainPath)) return {owner, false};
        isOfAnother = true;
    }
    return {owners[0], isOfAnother};
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

void MUninstallEntry::Delete(const MString& key, const MString& mainPath, const MList<MFolderOwner>& owners) {
    const Finding finding = Find(key, mainPath, owners);
    if (finding.isOfAnother) return;
    const MFolderOwnerScope scope(finding.owner, mainPath);
    MRegistryKey programs;
    programs.Open(MRegistryRoot::LocalMachine, MUninstallKeyName);
    MRegistryKey::Delete(programs, key);
}

bool MUninstallEntry::IsOfAnother(const MString& key, const MString& mainPath,
                                  const MList<MFolderOwner>& owners) {
    return Find(key, mainPath, owners).isOfAnother;
}
