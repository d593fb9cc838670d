#include "install/definition/MSetupSession.h"

#include "foundation/base/MRefusal.h"
#include "foundation/xml/MXMLSubItems.h"
#include "install/definition/MItemNames.h"

MSetupSession::MSetupSession(MLargeResourceLibrary& definition)
    : Library(&definition), SoftwareName(definition.GetAttribute("name")) {
    MCheckItemNames(definition);
}

void MSetupSession::CreatePathMacros() {
    Macros.CreatePathMacros(UseX64);
    const MString value = Macros.FindValueWithKey();
    if (value.IsEmpty()) return;
    MRefuse("The folder \"{0}\" of this system cannot be used: \"{1}\" in its name stands for another folder "
            "here. Please start the installer as a user whose folders have other names.",
            value, Macros.FindKey(value));
}

MList<MString> MSetupSession::AddDirectoryMacros() {
    MList<MString> paths;
    for (const MXMLItem& directory : MXMLSubItems(*Library, "directory")) {
        if (directory.GetInt32Attribute("Available", 1) == 0) continue;
        const MString path = directory.GetAttribute("path");
        Macros.AddMacro(directory.GetAttribute("id"), path);
        paths.Add(path);
    }
    return paths;
}

void MSetupSession::ExpandDestinations() {
    const auto expand = [this](MXMLItem& pass) {
        if (pass.GetInt32Attribute("enabled", 0) == 0) return;
        pass.SetAttribute("currentpath", Macros.ExpandPath(pass.GetAttribute("destination")));
    };
    for (MXMLItem& files : MXMLSubItems(*Library, "files")) {
        expand(files);
        for (MXMLItem& copy : MXMLSubItems(files, "copy")) expand(copy);
    }
}
