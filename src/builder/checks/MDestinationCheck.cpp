#include "builder/checks/MDestinationCheck.h"

#include "builder/checks/MFileNameRules.h"
#include "builder/checks/MMainDirectoryCheck.h"
#include "foundation/base/MGuard.h"
#include "foundation/files/MInstallationNames.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/text/MUnicode.h"
#include "install/definition/MPathMacros.h"

#include <algorithm>

namespace {

/// What an installation leaves in its first directory, and what its program would take there for the data of
/// an installer: it would then neither remove the product nor be installed over it.
bool IsInstallersOwn(const MString& name, const char* program) {
    const char* const names[] = {program,       "setup.state",  "setup.lock",   "setup.dat",
                                 "setup.multi", "setup.update", MUpdateLockName};
    return std::ranges::any_of(names, [&](const char* own) { return name == own; });
}

bool IsWritten(const MXMLItem& item) {
    const MString op = item.GetAttribute("op", "");
    return op == "create" || op == "update";
}

}  // namespace

void MDestinationCheck::Run() {
    for (const MXMLItem* files : definition.GetRoot().GetSubItems()) {
        if (!(files->GetName() == "files")) continue;
        AddPass(*files, *files);
        for (const MXMLItem* copy : files->GetSubItems())
            if (copy->GetName() == "copy") AddPass(*copy, *files);
    }
    for (const Pass& pass : passes) WalkPass(pass);
}

void MDestinationCheck::AddPass(const MXMLItem& element, const MXMLItem& files) {
    MItemExtensions extensions;
    MGuard("MDestinationCheck", [&] { extensions = MGetItemExtensions(element); });
    passes.push_back({&element, &files, element.GetAttribute("configurations", "").Split(MChar(',')),
                      element.GetInt32Attribute("ignoresubdirs", 0) != 0, MPlatforms(element), extensions});
}

void MDestinationCheck::WalkPass(const Pass& pass) {
    MString target = pass.element->GetAttribute("destination", "");
    target.ReplaceChar(MChar('\\'), "/");
    const MString source = definition.GetSourcePath(pass.files->GetAttribute("path", ""));
    const MString longest = WalkItems(pass, *pass.files, target, source, pass.isFlat);
    constexpr int32_t MaximumLength = 259;
    const int32_t length = EstimateLength(target) + longest.GetLength() - target.GetLength();
    if (length > MaximumLength && pass.platforms.IsOnWindows())
        problems.AddWarning(
            definition.GetLine(*pass.element),
            MFormat("\"{0}\" will have about {1} characters on Windows, where many programs open no path of "
                    "more than {2}. Shorten names.",
                    longest, length, MaximumLength));
}

int32_t MDestinationCheck::EstimateLength(const MString& destination) const {
    const auto measure = [](const MString& path) {
        // As long as the application data of a user whose name is short.
        constexpr int32_t FolderLength = 40;
        const int32_t end = path.StartsWith("{") ? path.FindChar(MChar('}')) : -1;
        return end < 0 ? path.GetLength() : FolderLength + path.GetLength() - end - 1;
    };
    const int32_t end = destination.FindChar(MChar('}'));
    const MXMLItem* directory =
        end < 1 ? nullptr
                : definition.GetRoot().FindSubItem("directory", "id", destination.Substring(1, end - 1));
    if (!directory) return measure(destination);
    // The default of a directory names no other directory.
    return measure(directory->GetAttribute("default", "")) + destination.GetLength() - end - 1;
}

MString MDestinationCheck::WalkItems(const Pass& pass, const MXMLItem& parent, const MString& target,
                                     const MString& source, bool isFlat) {
    MString longest = target;
    const auto take = [&longest](const MString& path) {
        if (path.GetLength() > longest.GetLength()) longest = path;
    };
    for (const MXMLItem* item : parent.GetSubItems()) {
        const bool isDirectory = item->GetName() == "dir";
        if (!isDirectory && !(item->GetName() == "file")) continue;
        const MString name = MGetItemName(parent, *item, pass.extensions);
        const MString itemTarget = MFile::Join(target, name);
        const MString itemSource = MFile::Join(source, item->GetAttribute("name", ""));
        // A flattened pass keeps the directories that have a dot in their names: they are bundles.
        const bool isDropped = isDirectory && isFlat && !name.Contains(".");
        if (isDirectory ? !isDropped : IsWritten(*item)) {
            AddPlace(itemTarget, {&pass, item, itemSource, isDirectory});
            take(itemTarget);
        }
        if (isDirectory) take(WalkItems(pass, *item, isDropped ? target : itemTarget, itemSource, isDropped));
    }
    return longest;
}

void MDestinationCheck::AddPlace(const MString& target, const Place& place) {
    std::vector<Place>& others = places[MEncodeUTF8Exact(MFileNameRules::FoldCase(target))];
    for (const Place& other : others) Compare(target, other, place);
    others.push_back(place);
    if ((IsInMainDirectory(target, place, &MPlatforms::IsOnWindows) &&
         IsInstallersOwn(MFile::GetFileName(target), "setup.exe")) ||
        (IsInMainDirectory(target, place, &MPlatforms::IsOnLinux) &&
         IsInstallersOwn(MFile::GetFileName(target), "setup.run")))
        problems.AddError(GetLine(place),
                          MFormat("\"{0}\" is a name of the installer's own in the first directory. Rename "
                                  "the file, or give it another destination.",
                                  target));
}

bool MDestinationCheck::IsInMainDirectory(const MString& target, const Place& place,
                                          bool (MPlatforms::*isOn)() const) const {
    if (!(place.pass->platforms.*isOn)()) return false;
    const MString folder = MFile::GetDirectory(target);
    return std::ranges::any_of(MListMainDirectories(definition.GetRoot(), isOn),
                               [&](const MXMLItem* directory) {
                                   return folder == MPathMacros::GetKey(directory->GetAttribute("id", ""));
                               });
}

int32_t MDestinationCheck::GetLine(const Place& place) const {
    const bool isCopy = place.pass->element != place.pass->files;
    return definition.GetLine(isCopy ? *place.pass->element : *place.item);
}

void MDestinationCheck::Compare(const MString& target, const Place& first, const Place& second) {
    const bool isOneSource = first.item != second.item && first.source.IsExactly(second.source);
    const bool areDirectories = first.isDirectory && second.isDirectory;
    if (isOneSource || areDirectories || !CanMeet(*first.pass, *second.pass)) return;
    problems.AddError(
        GetLine(second),
        MFormat("Two items would become \"{0}\"; the other is in line {1}. Rename one, or give them "
                "different destinations or configurations.",
                target, GetLine(first)));
}

bool MDestinationCheck::CanMeet(const Pass& first, const Pass& second) {
    if (!first.platforms.Meets(second.platforms)) return false;
    if (&first == &second || first.configurations.IsEmpty() || second.configurations.IsEmpty()) return true;
    for (const MString& id : first.configurations)
        for (const MString& other : second.configurations)
            if (id == other) return true;
    return false;
}
