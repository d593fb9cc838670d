#include "install/registration/MShortcuts.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"
#include "foundation/module/MPlatform.h"
#include "foundation/xml/MXMLSubItems.h"

namespace {

struct Target {
    MString path;
    MString arguments;

    [[nodiscard]] bool IsThere() const {
        return !path.IsEmpty() && (path.Contains("://") || MFile::Exists(path));
    }
};

Target FindTarget(MXMLItem& shortcut, const MShortcutTargets& targets) {
    if (!shortcut.HasAttribute("preset"))
        return {targets.expand(shortcut.GetAttribute("destination", "")),
                shortcut.GetAttribute("arguments", "")};
    const MString preset = shortcut.GetCachedAttribute();
    const bool isOurs = preset == "uninstall" || preset == "update";
    return isOurs ? Target{targets.setup, preset} : Target();
}

}  // namespace

MString MShortcuts::GetDirectory() const {
    return MFile::GetSpecialPath(adminRights ? MSpecialFolderStartMenuPrograms
                                             : MSpecialFolderUserStartMenuPrograms);
}

MString MShortcuts::GetFormerDirectory() const {
    return MFile::GetSpecialPath(adminRights ? MSpecialFolderStartMenu : MSpecialFolderUserStartMenu);
}

MString MShortcuts::GetLinkPath(const MString& directory, const MXMLItem& shortcut) const {
    const bool isOnDesktop = shortcut.GetInt32Attribute("desktop", 0) != 0;
    const auto desktop = adminRights ? MSpecialFolderDesktop : MSpecialFolderUserDesktop;
    return MFile::Join(isOnDesktop ? MFile::GetSpecialPath(desktop) : directory,
                       shortcut.GetAttribute("name"));
}

void MShortcuts::CreateLinks(const MString& directory, const MXMLItem& item,
                             const MShortcutTargets& targets) const {
    for (MXMLItem& shortcut : MXMLSubItems(item, "shortcut")) {
        const Target target = FindTarget(shortcut, targets);
        if (!target.IsThere()) continue;
        const MString link = GetLinkPath(directory, shortcut);
        const MString& description = shortcut.GetValue();
        MGuard("Links", [&] {
            // Where nothing was ever put into the menu its folder may be missing.
            MFile::CreatePath(MFile::GetDirectory(link));
            MFile::CreateLink(link, target.path, target.arguments,
                              description.IsEmpty() ? MPlatform::GetPathText(target.path) : description);
        });
    }
    for (const MXMLItem& folder : MXMLSubItems(item, "shortcutdirectory")) {
        const MString path = MFile::Join(directory, folder.GetAttribute("name"));
        MFile::CreatePath(path);
        CreateLinks(path, folder, targets);
    }
}

void MShortcuts::RemoveLinks(const MString& directory, const MXMLItem& item, const MLinkOwner& installation) {
    for (const MXMLItem& shortcut : MXMLSubItems(item, "shortcut")) {
        const MString link = GetLinkPath(directory, shortcut);
        // There may be one of each kind, if an earlier version led elsewhere.
        for (int32_t kind = 0; kind < 2; ++kind) {
            const MString file = MFile::FindLink(link);
            if (file.IsEmpty() || installation.IsOfAnother(file)) break;
            if (MGuard("Links", [&] { MFile::DeleteLink(link); })) continue;
            failures.Add(file);
            break;
        }
    }
    for (const MXMLItem& folder : MXMLSubItems(item, "shortcutdirectory")) {
        const MString path = MFile::Join(directory, folder.GetAttribute("name"));
        RemoveLinks(path, folder, installation);
        const bool isRemoved = MGuard("Links", [&] { MFile::RemoveDirectory(path); });
        if (isRemoved || !MFile::IsDirectory(path)) continue;
        bool holdsSomething = false;
        MGuard("Links", [&] { holdsSomething = !MFile::GetFileList(path).IsEmpty(); });
        (holdsSomething ? keptFolders : failures).Add(path);
    }
}

bool MLinkOwner::IsOfAnother(const MString& link) const {
    MString directory = MFile::GetLinkDirectory(link);
    while (!directory.IsEmpty()) {
        if (MFile::IsSame(directory, mainPath)) return false;
        if (MFile::IsInstallation(directory)) return true;
        const MString parent = MFile::GetDirectory(directory);
        if (parent.IsExactly(directory)) break;
        directory = parent;
    }
    return hasSuccessor;
}
