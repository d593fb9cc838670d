#include "install/run/MInstallState.h"

#include "foundation/base/MRefusal.h"
#include "foundation/files/MInstallationNames.h"

void MLoadInstallState(const MString& directory, MXMLItem& state) {
    state.LoadFile(MGetStatePath(directory));
    (void)state.GetAttribute("name");
    const MString mainPath = state.GetAttribute("mainpath");
    if (!MFile::IsSame(mainPath, directory))
        MRefuse("{0} was installed in \"{1}\", but this program stands in \"{2}\". Nothing has been changed. "
                "Please start \"{3}\" instead; if the folder of the software has been moved, move it back "
                "first, or install the software again.",
                state.GetAttribute("name"), mainPath, directory, MGetSetupPath(mainPath));
    const MString data = MFindSetupData(directory);
    if (!data.IsEmpty())
        MRefuse("Both the state of an installation and the installer data \"{0}\" lie in the folder of this "
                "program. Nothing has been changed. To install, start the installer in a folder of its own; "
                "to remove {1}, move the data elsewhere.",
                data, state.GetAttribute("name"));
}

MString MFindSetupData(const MString& directory) {
    for (const char* name : MSetupDataNames) {
        const MString path = MFile::Join(directory, name);
        if (MFile::IsFile(path)) return path;
    }
    return MString();
}
