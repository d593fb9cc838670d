#include "builder/checks/MDestinationCheck.h"

#include "builder/checks/MFileNameRules.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/text/MUnicode.h"

namespace {

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
    std::vector<const MXMLItem*> extensions;
    for (const MXMLItem* child : element.GetSubItems())
        if (child->GetName() == "extension") extensions.push_back(child);
    passes.push_back({&element, &files, element.GetAttribute("configurations", "").Split(MChar(',')),
                      element.GetInt32Attribute("ignoresubdirs", 0) != 0, MPlatforms(element), extensions});
}

void MDestinationCheck::WalkPass(const Pass& pass) {
    MString target = pass.element->GetAttribute("destination", "");
    target.ReplaceChar(MChar('\\'), "/");
    const MString source = definition.GetSourcePath(pass.files->GetAttribute("path", ""));
    WalkItems(pass, *pass.files, target, source, pass.isFlat);
}

void MDestinationCheck::WalkItems(const Pass& pass, const MXMLItem& parent, const MString& target,
                                  const MString& source, bool isFlat) {
    for (const MXMLItem* item : parent.GetSubItems()) {
        const bool isDirectory = item->GetName() == "dir";
        if (!isDirectory && !(item->GetName() == "file")) continue;
        const MString name = GetTargetName(pass, parent, *item);
        const MString itemTarget = MFile::Join(target, name);
        const MString itemSource = MFile::Join(source, item->GetAttribute("name", ""));
        // A flattened pass keeps the directories that have a dot in their names: they are bundles.
        const bool isDropped = isDirectory && isFlat && !name.Contains(".");
        if (isDirectory ? !isDropped : IsWritten(*item))
            AddPlace(itemTarget, {&pass, item, itemSource, isDirectory});
        if (isDirectory) WalkItems(pass, *item, isDropped ? target : itemTarget, itemSource, isDropped);
    }
}

MString MDestinationCheck::GetTargetName(const Pass& pass, const MXMLItem& parent, const MXMLItem& item) {
    MString name = item.GetAttribute("name", "");
    if (name.IsEmpty()) name = MFile::GetFileName(parent.GetAttribute("path", ""));
    const MString extension = MFile::GetExtension(name);
    for (const MXMLItem* mapping : pass.extensions)
        if (mapping->GetAttribute("src", "") == extension)
            return MFile::ChangeExtension(name, mapping->GetAttribute("dst", ""));
    return name;
}

void MDestinationCheck::AddPlace(const MString& target, const Place& place) {
    std::vector<Place>& others = places[MEncodeUTF8Exact(MFileNameRules::FoldCase(target))];
    for (const Place& other : others) Compare(target, other, place);
    others.push_back(place);
}

void MDestinationCheck::Compare(const MString& target, const Place& first, const Place& second) {
    const bool isOneSource = first.item != second.item && first.source.IsExactly(second.source);
    const bool areDirectories = first.isDirectory && second.isDirectory;
    if (isOneSource || areDirectories || !CanMeet(*first.pass, *second.pass)) return;
    const auto getLine = [this](const Place& place) {
        return definition.GetLine(place.pass->element == place.pass->files ? *place.item
                                                                           : *place.pass->element);
    };
    problems.AddError(
        getLine(second),
        MFormat("Two items would become \"{0}\"; the other is in line {1}. Rename one, or give them "
                "different destinations or configurations.",
                target, getLine(first)));
}

bool MDestinationCheck::CanMeet(const Pass& first, const Pass& second) {
    if (!first.platforms.Meets(second.platforms)) return false;
    if (&first == &second || first.configurations.IsEmpty() || second.configurations.IsEmpty()) return true;
    for (const MString& id : first.configurations)
        for (const MString& other : second.configurations)
            if (id == other) return true;
    return false;
}
