#include "builder/updates/MUpdateTargets.h"

#include "builder/checks/MFileNameRules.h"
#include "builder/updates/MUpdatePaths.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MUnicode.h"
#include "foundation/xml/MXMLSubItems.h"

#include <algorithm>

namespace {

std::string GetKey(const MString& target) {
    return MEncodeUTF8Exact(MFileNameRules::FoldCase(target));
}

MString ReplaceExtension(const MString& name, const MItemExtensions& extensions) {
    const MString extension = MFile::GetExtension(name);
    for (int32_t i = 0; i < extensions.sourceExtensions.GetCount(); ++i)
        if (extension == extensions.sourceExtensions[i])
            return MFile::ChangeExtension(name, extensions.destinationExtensions[i]);
    return name;
}

}  // namespace

MUpdateTargets::MUpdateTargets(const MXMLItem& root) {
    for (const MXMLItem& files : MXMLSubItems(root, "files"))
        for (const Pass& pass : GetPasses(files)) AddItems(files, MString(), pass);
}

MUpdateTargets::Share MUpdateTargets::GetFilled(const MXMLItem& files, const MString& path) const {
    const std::vector<Pass> passes = GetPasses(files);
    const auto count = std::ranges::count_if(passes, [&](const Pass& pass) {
        const auto found = places.find(GetKey(pass.GetTarget(path)));
        return found != places.end() && std::ranges::any_of(found->second, [&](const MPlatforms& platforms) {
                   return platforms.Meets(pass.platforms);
               });
    });
    if (count == 0) return Share::None;
    return count == std::ssize(passes) ? Share::All : Share::Some;
}

MString MUpdateTargets::Pass::GetTarget(const MString& path) const {
    const MList<MString> names = path.Split(MChar('/'));
    MString target = destination;
    bool isFlattening = isFlat;
    for (int32_t i = 0; i < names.GetCount(); ++i) {
        const MString name = ReplaceExtension(names[i], extensions);
        const bool isLast = i + 1 == names.GetCount();
        // A flattened pass keeps the directories that have a dot in their names: they are bundles.
        if (!isLast && name.Contains(".")) isFlattening = false;
        if (isLast || !isFlattening) target = MUpdatePaths::Append(target, name);
    }
    return target;
}

std::vector<MUpdateTargets::Pass> MUpdateTargets::GetPasses(const MXMLItem& files) {
    std::vector<Pass> passes;
    const auto add = [&](const MXMLItem& pass) {
        passes.push_back({MUpdatePaths::GetDirectory(files, pass),
                          pass.GetInt32Attribute("ignoresubdirs", 0) != 0, MGetItemExtensions(pass),
                          MPlatforms(pass)});
    };
    add(files);
    for (const MXMLItem& copy : MXMLSubItems(files, "copy")) add(copy);
    return passes;
}

void MUpdateTargets::AddItems(const MXMLItem& parent, const MString& path, const Pass& pass) {
    for (const MXMLItem* child : parent.GetSubItems()) {
        const bool isDirectory = child->GetName() == "dir";
        if (!isDirectory && !(child->GetName() == "file")) continue;
        const MString childPath = MUpdatePaths::Append(path, MUpdatePaths::GetName(parent, *child));
        if (isDirectory) AddItems(*child, childPath, pass);
        if (child->GetAttribute("op", "") == "delete") continue;
        for (MString place = pass.GetTarget(childPath); place.GetLength() > pass.destination.GetLength();
             place = MFile::GetDirectory(place))
            places[GetKey(place)].push_back(pass.platforms);
    }
}
