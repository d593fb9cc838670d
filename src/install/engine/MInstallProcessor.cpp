#include "install/engine/MInstallProcessor.h"

#include "foundation/base/MAddSize.h"
#include "foundation/files/MFile.h"
#include "foundation/xml/MXMLSubItems.h"
#include "install/definition/MPlatformElement.h"
#include "install/definition/MTreeSize.h"
#include "install/engine/MInstallRetry.h"
#include "install/presets/MUserDataMigration.h"

/// One `dir` or `file` element in the hands of the walk.
struct MInstallProcessor::Item {
    MXMLItem& element;
    MString name;
    MString path;
    MString op;
    bool rewritable;
};

namespace {

bool IsEnabled(const MXMLItem& pass) {
    return pass.GetInt32Attribute("enabled", 0) != 0;
}

bool OwnsDirectory(const MXMLItem& pass) {
    return pass.GetInt32Attribute("createpath", 1) != 0;
}

MProcessOptions MakeOptions(const MXMLItem& pass, const MString& directory, MRunKind kind) {
    MProcessOptions options{MGetItemExtensions(pass)};
    options.uninstall = kind == MRunKind::Uninstall;
    options.ignoreSubdirs = pass.GetInt32Attribute("ignoresubdirs", 0) != 0 && !directory.Contains(".");
    return options;
}

}  // namespace

void MInstallProcessor::Perform(MXMLItem& root, MLargeResourceLibrary* contents, const MInstallViews& views,
                                MRunKind kind) {
    library = contents;
    progress.Begin(views);
    views.ShowInfo(MTranslate("Checking installation..."));
    MCheckItemNames(root);
    for (MXMLItem& files : MXMLSubItems(root, "files")) Prepare(files, kind);

    views.ShowInfo(MTranslate("Copying files..."));
    Log("Performing installation");
    for (MXMLItem& files : MXMLSubItems(root, "files")) PerformFiles(files, kind);
    progress.log.Flush();
}

/// Counts what is to be done for an element and its copies, and makes their directories.
void MInstallProcessor::Prepare(MXMLItem& files, MRunKind kind) {
    const bool isInstall = kind == MRunKind::Install;
    const MTreeSize size = isInstall ? MMeasureTree(files) : MTreeSize{files.CountSubItems("file"), 0};
    const auto addPass = [&](const MXMLItem& pass, bool isCounted) {
        if (!IsEnabled(pass)) return;
        if (isInstall) {
            const MString directory = pass.GetAttribute("currentpath");
            if (OwnsDirectory(pass)) MFile::CreatePath(directory);
        }
        if (!isCounted) return;
        MAddSize(progress.itemCount, size.count);
        MAddSize(progress.totalBytes, size.bytes);
    };
    addPass(files, true);
    for (const MXMLItem& copy : MXMLSubItems(files, "copy")) addPass(copy, MIsForThisPlatform(copy));
}

void MInstallProcessor::PerformFiles(MXMLItem& files, MRunKind kind) {
    const bool isRemoval = kind == MRunKind::Uninstall;
    if (isRemoval && files.GetInt32Attribute("uninstall", 1) == 0) return;
    if (IsEnabled(files)) {
        const MString directory = files.GetAttribute("currentpath");
        Log("Initiating install to ", directory);
        progress.installed.Begin(files);
        MProcessOptions options = MakeOptions(files, directory, kind);
        ProcessItems(directory, files, true, options);
        if (isRemoval && OwnsDirectory(files)) {
            Log("Deleting directory ", directory);
            remover.RemoveDirectory(directory);
        }
    }
    for (const MXMLItem& copy : MXMLSubItems(files, "copy")) {
        if (!IsEnabled(copy) || !MIsForThisPlatform(copy)) continue;
        const MString directory = copy.GetAttribute("currentpath");
        progress.installed.Begin(copy);
        MProcessOptions options = MakeOptions(copy, directory, kind);
        ProcessItems(directory, files, true, options);
        if (isRemoval && OwnsDirectory(copy)) remover.RemoveDirectory(directory);
    }
}

void MInstallProcessor::ProcessItems(const MString& destination, MXMLItem& item, bool rewritable,
                                     MProcessOptions& options) {
    rewritable = rewritable && item.GetInt32Attribute("rewritable", 1) != 0;
    if (options.uninstall && (item.GetInt32Attribute("uninstall", 1) == 0 || !rewritable)) return;

    const bool isUserData = destination == MFile::GetSpecialPath(MSpecialFolderUserData);
    for (int32_t i = 0; i < item.GetSubItemCount(); ++i) {
        MXMLItem& child = *item.GetSubItem(i);
        const bool isDirectory = child.GetName() == "dir";
        if (!isDirectory && !(child.GetName() == "file")) continue;
        const MString name = MGetItemName(item, child, options);
        MRequireItemName(name);
        if (isUserData) MigrateUserData(destination);
        const Item current{child, name, MFile::Join(destination, name), child.GetAttribute("op", ""),
                           rewritable};
        progress.fileBytes = 0;
        progress.filePosition = 0;
        if (isDirectory)
            ProcessDirectory(current, destination, options);
        else
            ProcessFile(current, options);
        progress.TellSharedFolders();
    }
}

void MInstallProcessor::ProcessDirectory(const Item& item, const MString& destination,
                                         MProcessOptions& options) {
    progress.log.Flush();
    Log("Processing directory \"", item.path, "\" operation ", item.op);
    const bool ignoreSubdirs = options.ignoreSubdirs;
    if (ignoreSubdirs && !item.name.Contains("."))
        return ProcessItems(destination, item.element, item.rewritable, options);
    options.ignoreSubdirs = false;
    if (!options.uninstall && item.op == "create") {
        progress.ShowItem("creating directory {0} ({1} of {2})", item.path);
        Log("Creating directory ", item.path);
        MInstallRetry([&] { MFile::CreatePath(item.path); });
    }
    ProcessItems(item.path, item.element, item.rewritable, options);
    if (options.uninstall || item.op == "delete") {
        ShowRemoval("deleting directory {0} ({1} of {2})", item, options);
        Log("Deleting directory ", item.path);
        if (MFile::Exists(item.path)) remover.RemoveDirectory(item.path);
    }
    options.ignoreSubdirs = ignoreSubdirs;
}

void MInstallProcessor::ProcessFile(const Item& item, const MProcessOptions& options) {
    const bool isRemoval = options.uninstall || item.op == "delete";
    const bool isWritten = !isRemoval && (item.op == "create" || item.op == "update");
    // Deleting is so quick that the log would take its time, and what stays needs none; there its lines are on the
    // disk by the directory.
    if (isWritten) progress.log.Flush();
    Log("Processing file \"", item.path, "\" operation ", item.op);
    if (isRemoval) {
        ShowRemoval("deleting file {0} ({1} of {2})", item, options);
        ++progress.itemIndex;
        if (item.rewritable) remover.RemoveFile(item.path);
    } else if (isWritten) {
        writer.Write(item.element, item.path, item.rewritable, *library);
    }
}

void MInstallProcessor::ShowRemoval(const char* format, const Item& item,
                                    const MProcessOptions& options) const {
    if (options.uninstall)
        progress.ShowItems();
    else
        progress.ShowItem(format, item.path);
}
