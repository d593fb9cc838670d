#include "builder/checks/MMainDirectoryCheck.h"

#include "foundation/text/MStringFormatter.h"
#include "foundation/xml/MXMLSubItems.h"

#include <algorithm>

namespace {

constexpr const char* Consequence = "the state of one product's installation replaces that of another's.";

/// A macro with nothing behind it.
bool IsBareMacro(MString path) {
    path.ReplaceChar(MChar('\\'), "/");
    while (path.EndsWith("/")) path.Cut(path.GetLength() - 1);
    return path.StartsWith("{") && path.FindChar(MChar('}')) == path.GetLength() - 1;
}

void CheckDirectory(const MXMLItem& directory, const MDefinition& definition, MProblemList& problems) {
    const int32_t line = definition.GetLine(directory);
    if (directory.GetInt32Attribute("StoreSystemDefaults", 0) != 0)
        problems.AddWarning(line, MFormat("The first directory is remembered for other products, so {0} Put "
                                          "another one in front of it.",
                                          Consequence));
    MString bare = directory.GetAttribute("default", "");
    for (const MXMLItem& fallBack : MXMLSubItems(directory, "default"))
        if (!IsBareMacro(bare)) bare = fallBack.GetValue();
    if (IsBareMacro(bare))
        problems.AddWarning(line,
                            MFormat("The first directory may be \"{0}\", which all products share, so {1} "
                                    "Add a folder of the product's own.",
                                    bare, Consequence));
}

}  // namespace

std::vector<const MXMLItem*> MListMainDirectories(const MXMLItem& root, bool (MPlatforms::*isOn)() const) {
    std::vector<const MXMLItem*> directories;
    for (const MXMLItem& directory : MXMLSubItems(root, "directory")) {
        if (!(MPlatforms(directory).*isOn)()) continue;
        directories.push_back(&directory);
        if (directory.GetInt32Attribute("x64", 0) == 0) break;
    }
    return directories;
}

void MCheckMainDirectory(const MDefinition& definition, MProblemList& problems) {
    const MXMLItem& root = definition.GetRoot();
    std::vector<const MXMLItem*> known;
    const auto hasAlways = [&](bool (MPlatforms::*isOn)() const) {
        const std::vector<const MXMLItem*> directories = MListMainDirectories(root, isOn);
        for (const MXMLItem* directory : directories) {
            if (std::ranges::count(known, directory) > 0) continue;
            CheckDirectory(*directory, definition, problems);
            known.push_back(directory);
        }
        if (!directories.empty() && directories.back()->GetInt32Attribute("x64", 0) == 0) return true;
        // A product that installs nothing there needs none.
        return std::ranges::none_of(root.GetSubItems(), [&](const MXMLItem* files) {
            return files->GetName() == "files" && (MPlatforms(*files).*isOn)();
        });
    };
    const bool isOnWindows = hasAlways(&MPlatforms::IsOnWindows);
    const bool isOnLinux = hasAlways(&MPlatforms::IsOnLinux);
    if (!isOnWindows || !isOnLinux)
        problems.AddWarning(
            definition.GetLine(root),
            MFormat("There are installations without a \"directory\", so {0} Add one.", Consequence));
}
