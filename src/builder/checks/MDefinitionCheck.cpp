#include "builder/checks/MDefinitionCheck.h"

#include "builder/checks/MDestinationCheck.h"
#include "builder/checks/MElementCheck.h"
#include "builder/checks/MFileNameRules.h"
#include "builder/checks/MReferenceCheck.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/xml/MXMLSubItems.h"

namespace {

/// A name that some platform does not take, or that leads out of its directory, is a problem.
void CheckName(const MXMLItem& item, const MString& name, const MDefinition& definition,
               MProblemList& problems) {
    const MString fault = MFileNameRules::FindFault(name);
    if (!fault.IsEmpty())
        problems.AddError(definition.GetLine(item), MFormat("The name \"{0}\" {1}. Rename it.", name, fault));
}

void CheckNames(const MXMLItem& item, const MDefinition& definition, MProblemList& problems) {
    const MString& name = item.GetName();
    if (name == "dir" || name == "file" || name == "shortcut" || name == "shortcutdirectory")
        CheckName(item, item.GetAttribute("name", ""), definition, problems);
    if (name == "extension") CheckName(item, item.GetAttribute("dst", ""), definition, problems);
    // A child without a name takes the last name of the path.
    if (name == "files")
        CheckName(item, MFile::GetFileName(item.GetAttribute("path", "")), definition, problems);
    for (const MXMLItem* child : item.GetSubItems()) CheckNames(*child, definition, problems);
}

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

/// Preset files that every installation would replace, with all that users have added to them: a warning for
/// each `files` element.
void CheckPresets(const MDefinition& definition, MProblemList& problems) {
    for (const MXMLItem& files : MXMLSubItems(definition.GetRoot(), "files")) {
        const MString name = FindUnprotected(files);
        if (name.IsEmpty()) continue;
        problems.AddWarning(
            definition.GetLine(files),
            MFormat(
                "The preset file \"{0}\" is replaced by every installation, with all that users have added "
                "to it. Add rewritable=\"0\", and new presets are merged into theirs.",
                name));
    }
}

}  // namespace

void MPrepareDefinition(const MString& path, const MPlaceholders& placeholders, MDefinition& definition,
                        MSourceTree& sources, MProblemList& problems) {
    if (!definition.Load(path, problems)) return;
    placeholders.Fill(definition, problems);
    sources.Collect();
    MElementCheck(definition, problems).Run();
    MReferenceCheck(definition, problems).Run();
    CheckNames(definition.GetRoot(), definition, problems);
    MDestinationCheck(definition, problems).Run();
    CheckPresets(definition, problems);
}
