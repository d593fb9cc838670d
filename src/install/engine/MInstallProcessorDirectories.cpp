#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "install/engine/MInstallProcessorItem.h"
#include "install/engine/MInstallRetry.h"
#include "install/presets/MUserDataMigration.h"

void MInstallProcessor::ProcessItems(const MString& destination, MXMLItem& item, bool rewritable,
                                     MProcessOptions& options) {
    rewritable = rewritable && item.GetInt32Attribute("rewritable", 1) != 0;
    if (options.uninstall && (item.GetInt32Attribute("uninstall", 1) == 0 || !rewritable)) return;

    const bool isUserData = destination == MFile::GetSpecialPath(MSpecialFolderUserData);
    for (int32_t i = 0; i < item.GetSubItemCount(); ++i) {
        MXMLItem& child = *item.GetSubItem(i);
        const bool isDirectory = child.GetName() == "dir";
        if (!isDirectory && !(child.GetName() == "file")) continue;
        const MString name = GetItemName(item, child, options);
        if (isUserData) MigrateUserData(destination);
        const Item current{child,      name,   MFile::Join(destination, name), child.GetAttribute("op", ""),
                           rewritable, options};
        fileBytes = 0;
        filePosition = 0;
        if (isDirectory)
            ProcessDirectory(current, destination);
        else
            ProcessFile(current);
    }
}

MString MInstallProcessor::GetItemName(MXMLItem& parent, MXMLItem& child, const MProcessOptions& options) {
    MString name = child.GetAttribute("name", "");
    if (name.IsEmpty()) name = MFile::GetFileName(parent.GetAttribute("path", ""));
    if (options.sourceExtensions.IsEmpty()) return name;
    const MString extension = MFile::GetExtension(name);
    for (int32_t i = 0; i < options.sourceExtensions.GetCount(); ++i)
        if (extension == options.sourceExtensions[i])
            return MFile::ChangeExtension(name, options.destinationExtensions[i]);
    return name;
}

void MInstallProcessor::ProcessDirectory(const Item& item, const MString& destination) {
    log.Flush();
    Log("Processing directory \"", item.path, "\" operation ", item.op);
    const bool ignoreSubdirs = item.options.ignoreSubdirs;
    if (ignoreSubdirs && !item.name.Contains(".")) {
        ProcessItems(destination, item.element, item.rewritable, item.options);
        return;
    }
    item.options.ignoreSubdirs = false;
    ProcessDirectoryContents(item);
    item.options.ignoreSubdirs = ignoreSubdirs;
}

void MInstallProcessor::ProcessDirectoryContents(const Item& item) {
    if (!item.options.uninstall && item.op == "create") {
        ShowItem("creating directory {0} ({1} of {2})", item.path);
        Log("Creating directory ", item.path);
        MInstallRetry([&] { MFile::CreatePath(item.path); });
    }
    ProcessItems(item.path, item.element, item.rewritable, item.options);
    if (item.IsRemoval()) RemoveDirectory(item);
}

void MInstallProcessor::ShowItem(const char* format, const MString& path) {
    views.ShowFile(MFormat(MTranslate(format), path, itemIndex, itemCount));
}
