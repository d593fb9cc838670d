#include "builder/checks/MReferenceCheck.h"

#include "builder/checks/MPlatforms.h"
#include "foundation/files/MSpecialFolders.h"
#include "foundation/text/MStringFormatter.h"
#include "install/definition/MPathMacros.h"

namespace {

/// Of one id, and for one system.
bool IsTwin(const MXMLItem& first, const MXMLItem& second) {
    const MString id = second.GetAttribute("id", "");
    return !id.IsEmpty() && first.GetName() == second.GetName() && first.GetAttribute("id", "") == id &&
           MPlatforms(first).Meets(MPlatforms(second)) &&
           first.GetInt32Attribute("x64", 0) == second.GetInt32Attribute("x64", 0);
}

/// A macro without its braces that every definition can use: a folder of the machine, with or without "32" or
/// "64" behind it.
bool IsFolderMacro(const MString& name) {
    const bool hasSuffix = name.EndsWith("32") || name.EndsWith("64");
    const MString folder = hasSuffix ? name.Substring(0, name.GetLength() - 2) : name;
    for (int32_t i = 0; i < MSpecialFolderCount; ++i)
        if (folder == MPathMacros::GetFolderName(i)) return true;
    return false;
}

}  // namespace

void MReferenceCheck::Run() {
    CheckIds("configuration");
    CheckIds("directory");
    CheckItem(definition.GetRoot());
}

void MReferenceCheck::CheckIds(const MString& elementName) {
    for (const MXMLItem* item : definition.GetRoot().GetSubItems()) {
        if (!(item->GetName() == elementName)) continue;
        for (const MXMLItem* first = item->GetPrevious(); first; first = first->GetPrevious()) {
            if (!IsTwin(*first, *item)) continue;
            problems.AddWarning(
                definition.GetLine(*item),
                MFormat("The id \"{0}\" was given before, in line {1}. Where both exist, the first "
                        "one counts.",
                        item->GetAttribute("id"), definition.GetLine(*first)));
            break;
        }
    }
}

void MReferenceCheck::CheckItem(const MXMLItem& item) {
    const MString& name = item.GetName();
    if (name == "files" || name == "copy") CheckConfigurations(item);
    if (name == "files" || name == "copy") CheckStart(item, "destination");
    if (name == "directory") CheckStart(item, "default");
    if (name == "directory") CheckMacros(item, item.GetAttribute("default", ""), false);
    if (name == "default") CheckMacros(item, item.GetValue(), false);
    if (name == "files" || name == "copy" || name == "shortcut" || name == "execute") {
        const bool isBeforeChoice = item.GetParent() && item.GetParent()->GetName() == "onstart";
        CheckMacros(item, item.GetAttribute("destination", ""), !isBeforeChoice);
    }
    for (const MXMLItem* child : item.GetSubItems()) CheckItem(*child);
}

void MReferenceCheck::CheckConfigurations(const MXMLItem& item) {
    for (const MString& id : item.GetAttribute("configurations", "").Split(MChar(',')))
        if (!definition.GetRoot().FindSubItem("configuration", "id", id))
            problems.AddError(
                definition.GetLine(item),
                MFormat("There is no configuration \"{0}\". Define it, or correct the id; blanks beside "
                        "commas belong to the ids.",
                        id));
}

void MReferenceCheck::CheckStart(const MXMLItem& item, const char* attribute) {
    const MString path = item.GetAttribute(attribute, "{}");
    if (path.StartsWith("{") && path.FindChar(MChar('}')) >= 0) return;
    problems.AddWarning(definition.GetLine(item),
                        MFormat("The {0} \"{1}\" does not begin with a macro in braces: it may lie somewhere "
                                "else on every machine, and a removal would not find it. Add one.",
                                attribute, path));
}

void MReferenceCheck::CheckMacros(const MXMLItem& item, const MString& path, bool knowsDirectories) {
    int32_t position = 0;
    while ((position = path.FindChar(MChar('{'), position)) >= 0) {
        const int32_t end = path.FindChar(MChar('}'), position);
        if (end < 0) return;
        const MString name = path.Substring(position + 1, end - position - 1);
        // What is between doubled braces is for the command line to fill.
        if (name.FindChar(MChar('{')) < 0) CheckMacro(item, name, knowsDirectories);
        position = end + 1;
    }
}

void MReferenceCheck::CheckMacro(const MXMLItem& item, const MString& name, bool knowsDirectories) {
    const bool isDirectory = definition.GetRoot().FindSubItem("directory", "id", name) != nullptr;
    const int32_t line = definition.GetLine(item);
    if (IsFolderMacro(name)) {
        if (name.EndsWith("64") && !isDirectory && !HasX64Configuration())
            problems.AddWarning(line,
                                MFormat("{{{0}}} exists only in a configuration with x64=\"1\", and there is "
                                        "none. Add one, or write {{{1}}}.",
                                        name, name.Substring(0, name.GetLength() - 2)));
        return;
    }
    if (isDirectory && !knowsDirectories)
        problems.AddError(line,
                          MFormat("{{{0}}} is not known yet here: the user chooses directories later. Use a "
                                  "folder of the machine.",
                                  name));
    if (!isDirectory)
        problems.AddError(
            line,
            MFormat("Nothing defines {{{0}}}. Add a directory with this id, or correct the name.", name));
}

bool MReferenceCheck::HasX64Configuration() const {
    for (const MXMLItem* item : definition.GetRoot().GetSubItems())
        if (item->GetName() == "configuration" && item->GetInt32Attribute("x64", 0) != 0) return true;
    return false;
}
