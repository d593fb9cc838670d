#include "builder/checks/MPresetCheck.h"

#include "foundation/files/MFile.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/xml/MXMLSubItems.h"

namespace {

/// Plug-ins have files of other kinds too that are called presets.
bool IsPresetFile(const MString& name) {
    return name.EndsWith("presets.xml") || name.Contains("presets.active");
}

/// The name of the first preset file below an element that is not protected; empty if there is none.
MString FindUnprotected(const MXMLItem& container) {
    if (container.GetInt32Attribute("rewritable", 1) == 0) return MString();
    for (const MXMLItem& file : MXMLSubItems(container, "file")) {
        MString name = file.GetAttribute("name", "");
        if (name.IsEmpty()) name = MFile::GetFileName(container.GetAttribute("path", ""));
        const MString op = file.GetAttribute("op", "create");
        if (IsPresetFile(name) && (op == "create" || op == "update")) return name;
    }
    for (const MXMLItem& directory : MXMLSubItems(container, "dir")) {
        const MString name = FindUnprotected(directory);
        if (!name.IsEmpty()) return name;
    }
    return MString();
}

}  // namespace

void MPresetCheck::Run() {
    for (const MXMLItem& files : MXMLSubItems(definition.GetRoot(), "files")) {
        const MString name = FindUnprotected(files);
        if (name.IsEmpty()) continue;
        problems.AddWarning(
            definition.GetLine(files),
            MFormat(
                "The preset file \"{0}\" is replaced by every installation, with all that users have added to "
                "it. Add rewritable=\"0\", and new presets are merged into theirs.",
                name));
    }
}
