#include "install/run/MInstallCheck.h"

#include "foundation/base/MGuard.h"
#include "foundation/base/MRefusal.h"
#include "foundation/files/MInstallationNames.h"
#include "foundation/xml/MXMLSubItems.h"
#include "install/definition/MItemNames.h"
#include "install/definition/MPlatformElement.h"
#include "install/run/MInstallState.h"
#include "payload/MSfx.h"
#include "streams/basic/MMemoryStream.h"

namespace {

/// What a state gives back of a path.
MString SaveAndLoad(const MString& path) {
    MString loaded;
    MGuard("MInstallCheck", [&] {
        MXMLItem saved;
        saved.SetName("install");
        saved.SetAttribute("path", path);
        MMemoryStream stream;
        saved.Save(stream, false, "utf-8");
        stream.Rewind();
        MXMLItem state;
        state.Load(stream);
        loaded = state.GetAttribute("path");
    });
    return loaded;
}

bool HoldsControlCharacter(const MString& path) {
    for (int32_t i = 0; i < path.GetLength(); ++i)
        if (path[i] < u' ') return true;
    return false;
}

void CheckStatePath(const MString& path) {
    // Lists of paths, such as that of merged preset files, have a line for each.
    if (!HoldsControlCharacter(path) && SaveAndLoad(path).IsExactly(path)) return;
    MRefuse("The folder \"{0}\" cannot be used: its name holds characters that are no text, and what is "
            "installed there could not be removed again. Please choose or make another folder.",
            path);
}

bool IsInList(const MList<MString>& names, const MString& name) {
    for (const MString& other : names)
        if (other == name) return true;
    return false;
}

/// The name under which the product in a directory is installed; empty if there is none or its state cannot
/// be read.
MString FindInstallationName(const MString& directory) {
    MString name;
    MGuard("MInstallCheck", [&] {
        MXMLItem state;
        state.LoadFile(MGetStatePath(directory));
        name = state.GetAttribute("installationname", state.GetAttribute("name"));
    });
    return name;
}

/// Whether an enabled part puts a file of its own to a path.
bool Brings(const MXMLItem& definition, const MString& path) {
    for (const MXMLItem& files : MXMLSubItems(definition, "files")) {
        const auto bringsBy = [&](const MXMLItem& pass) {
            if (pass.GetInt32Attribute("enabled", 0) == 0 || !MIsForThisPlatform(pass)) return false;
            const MItemExtensions extensions = MGetItemExtensions(pass);
            for (const MXMLItem& file : MXMLSubItems(files, "file"))
                if (MFile::Join(pass.GetAttribute("currentpath"), MGetItemName(files, file, extensions)) ==
                    path)
                    return true;
            return false;
        };
        if (bringsBy(files)) return true;
        for (const MXMLItem& copy : MXMLSubItems(files, "copy"))
            if (bringsBy(copy)) return true;
    }
    return false;
}

bool CarriesPayload(const MString& program) {
    bool isOpen = false;
    // What is too short for a payload has none.
    MGuard("MInstallCheck", [&] { isOpen = MSfx(program).IsOpen(); });
    return isOpen;
}

}  // namespace

void MCheckDirectories(const MSetupSession& session, const MList<MString>& directories) {
    for (const MString& directory : directories) {
        if (!MFile::IsAbsolute(directory))
            MRefuse("The folder \"{0}\" cannot be used: this is no complete path. Please choose another one.",
                    directory);
        const MString key = session.Macros.FindKey(directory);
        if (key.IsEmpty()) continue;
        MRefuse("The folder \"{0}\" cannot be used: \"{1}\" in its name stands for another folder here. "
                "Please choose another one.",
                directory, key);
    }
}

void MCheckStatePaths(const MSetupSession& session, const MString& mainPath) {
    CheckStatePath(mainPath);
    const auto check = [](const MXMLItem& pass) {
        if (pass.GetInt32Attribute("enabled", 0) != 0) CheckStatePath(pass.GetAttribute("currentpath"));
    };
    for (const MXMLItem& files : MXMLSubItems(session.GetDefinition(), "files")) {
        check(files);
        for (const MXMLItem& copy : MXMLSubItems(files, "copy")) check(copy);
    }
}

void MCheckMainDirectory(const MSetupSession& session, const MString& mainPath,
                         const MList<MString>& replaced) {
    const MString setup = MGetSetupPath(mainPath);
    if (CarriesPayload(setup))
        MRefuse("{0} cannot be installed in \"{1}\": the installer \"{2}\" lies there, and would be replaced "
                "by the program that removes the software. Please choose another folder.",
                session.SoftwareName, mainPath, setup);
    for (const char* name : MSetupDataNames)
        if (Brings(session.GetDefinition(), MFile::Join(mainPath, name)))
            MRefuse(
                "{0} cannot be installed in \"{1}\": it brings a file \"{2}\" there, and the program that "
                "removes the software would take that for the data of an installer. Please tell its maker.",
                session.SoftwareName, mainPath, name);
    const MString data = MFindSetupData(mainPath);
    if (!data.IsEmpty())
        MRefuse("{0} cannot be installed in \"{1}\": the installer data \"{2}\" lie there. Please choose "
                "another folder.",
                session.SoftwareName, mainPath, data);
    const MString other = FindInstallationName(mainPath);
    if (other.IsEmpty() || other == session.GetInstallationName() || IsInList(replaced, other)) return;
    MRefuse("{0} cannot be installed in \"{1}\": {2} is installed there, and could not be removed any more. "
            "Please choose another folder, or remove {3} first.",
            session.SoftwareName, mainPath, other, other);
}
