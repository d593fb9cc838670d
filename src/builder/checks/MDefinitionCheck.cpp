#include "builder/checks/MDefinitionCheck.h"

#include "builder/checks/MDestinationCheck.h"
#include "builder/checks/MElementCheck.h"
#include "builder/checks/MFileNameRules.h"
#include "builder/checks/MMainDirectoryCheck.h"
#include "builder/checks/MReferenceCheck.h"
#include "builder/definition/MUpdateInformation.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/text/MUnicode.h"
#include "foundation/xml/MXMLSubItems.h"
#include "install/definition/MItemNames.h"
#include "streams/basic/MOutputFile.h"
#include "streams/ciphers/MRSAKey.h"

#include <string_view>

namespace {

// What names get on the disk: the links of a desktop, and files while they are written.
constexpr std::string_view LinkExtension = ".desktop";
constexpr std::string_view UnfinishedSuffix = MOutputFile::UnfinishedSuffix;

/// A name that some platform does not take, or that leads out of its directory, is a problem.
void CheckNames(const MDefinition& definition, MProblemList& problems) {
    MForEachItemName(definition.GetRoot(), [&](const MXMLItem& item, const MString& name) {
        const auto suffix = static_cast<int32_t>(item.GetName() == "shortcut" ? LinkExtension.size()
                                                 : item.GetName() == "file"   ? UnfinishedSuffix.size()
                                                                              : 0);
        const MString own = item.GetAttribute("name", "");
        MString separated = own;
        separated.ReplaceChar('\\', "/");
        const bool isOwn = own.IsExactly(name) || separated.IsExactly(name);
        // A backslash would do, but one way to write a name is enough.
        const MString fault = MFileNameRules::FindFault(isOwn ? own : name, suffix);
        if (fault.IsEmpty()) return;
        problems.AddError(
            definition.GetLine(item),
            MFormat(isOwn ? "The name \"{0}\" {1}. Rename it."
                          : "The name \"{0}\", which comes from a \"path\" or an \"extension\", {1}. Correct "
                            "it there.",
                    isOwn ? own : name, fault));
    });
}

/// Plug-ins have files of other kinds too that are called presets.
bool IsPresetFile(const MString& name) {
    return name.EndsWith("presets.xml") || name.Contains("presets.active");
}

/// The name of the first preset file below an element that is not protected; empty if there is none.
MString FindUnprotected(const MXMLItem& container) {
    if (container.GetInt32Attribute("rewritable", 1) == 0) return MString();
    for (const MXMLItem& file : MXMLSubItems(container, "file")) {
        const MString name = MGetItemName(container, file, {});
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

/// An installation that asks for updates compares their times with its own.
void CheckTime(const MDefinition& definition, MProblemList& problems) {
    const MXMLItem& root = definition.GetRoot();
    const MString time = root.GetAttribute("time", "");
    const bool isUpdated =
        !root.GetAttribute("updateaddress", "").IsEmpty() || root.GetInt32Attribute("update", 0) != 0;
    if (isUpdated && !MIsOfferTime(time))
        problems.AddWarning(
            definition.GetLine(root),
            MFormat("The \"time\" is \"{0}\", so no installation will find its updates. Write it as "
                    "\"2014-12-23 14:19:26\".",
                    time));
}

/// An installation whose key cannot be read refuses every update, and none could mend it.
void CheckUpdateKey(const MDefinition& definition, MProblemList& problems) {
    const MXMLItem& root = definition.GetRoot();
    const MString key = root.GetAttribute("updatekey", "");
    if (key.IsEmpty()) return;
    try {
        (void)MRSAKey::ReadPublicLine(MEncodeUTF8Exact(key));
    } catch (const MException& exception) {
        problems.AddError(
            definition.GetLine(root),
            MFormat("The \"updatekey\" cannot be used: {0} Write what stands between the first and the last "
                    "line of the public one.",
                    exception.GetMessage()));
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
    CheckNames(definition, problems);
    MDestinationCheck(definition, problems).Run();
    MCheckMainDirectory(definition, problems);
    CheckPresets(definition, problems);
    CheckTime(definition, problems);
    CheckUpdateKey(definition, problems);
}
