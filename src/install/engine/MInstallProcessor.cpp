#include "install/engine/MInstallProcessor.h"

#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/xml/MXMLSubItems.h"
#include "install/definition/MItemNames.h"
#include "install/definition/MPlatformElement.h"

namespace {

bool IsEnabled(const MXMLItem& pass) {
    return pass.GetInt32Attribute("enabled", 0) != 0;
}

bool OwnsDirectory(const MXMLItem& pass) {
    return pass.GetInt32Attribute("createpath", 1) != 0;
}

MProcessOptions MakeOptions(const MXMLItem& pass, const MString& directory, bool uninstall) {
    MProcessOptions options;
    options.uninstall = uninstall;
    options.ignoreSubdirs = pass.GetInt32Attribute("ignoresubdirs", 0) != 0 && !directory.Contains(".");
    return options;
}

}  // namespace

MInstallProcessor::MInstallProcessor() : buffer(BufferSize) {}

void MInstallProcessor::Perform(MXMLItem& root, MLargeResourceLibrary* contents, const MInstallViews& shown,
                                bool uninstall) {
    library = contents;
    views = shown;
    views.ShowInfo(MTranslate("Checking installation..."));
    MCheckItemNames(root);
    for (MXMLItem& files : MXMLSubItems(root, "files")) CountFiles(files, uninstall);

    views.ShowInfo(MTranslate("Copying files..."));
    Log("Performing installation");
    for (MXMLItem& files : MXMLSubItems(root, "files")) PerformFiles(files, uninstall);
    log.Flush();
}

void MInstallProcessor::CountFiles(MXMLItem& files, bool uninstall) {
    MList<MXMLItem, MListPointers> items;
    files.CollectSubItems("file", items);
    int32_t count = 0;
    int64_t size = 0;
    for (const MXMLItem* item : items) {
        const MString op = item->GetAttribute("op", "");
        if (!uninstall && op == "leave") continue;
        ++count;
        if (!uninstall && (op == "create" || op == "update")) size += item->GetInt64Attribute("filesize", 0);
    }
    const auto addPass = [&](MXMLItem& pass, bool isCounted) {
        if (!IsEnabled(pass)) return;
        CountPass(pass, uninstall);
        if (!isCounted) return;
        itemCount += count;
        totalBytes += size;
    };
    addPass(files, true);
    for (MXMLItem& copy : MXMLSubItems(files, "copy")) addPass(copy, MIsForThisPlatform(copy));
}

void MInstallProcessor::CountPass(MXMLItem& pass, bool uninstall) {
    if (uninstall) return;
    const MString directory = pass.GetAttribute("currentpath");
    if (OwnsDirectory(pass)) MFile::CreatePath(directory);
}

void MInstallProcessor::PerformFiles(MXMLItem& files, bool uninstall) {
    if (uninstall && files.GetInt32Attribute("uninstall", 1) == 0) return;
    if (IsEnabled(files)) {
        const MString directory = files.GetAttribute("currentpath");
        Log("Initiating install to ", directory);
        MProcessOptions options = MakeOptions(files, directory, uninstall);
        ProcessItems(directory, files, true, options);
        if (uninstall && OwnsDirectory(files)) Log("Deleting directory ", directory);
        if (uninstall) RemovePassDirectory(files, directory);
    }
    for (MXMLItem& copy : MXMLSubItems(files, "copy"))
        if (IsEnabled(copy) && MIsForThisPlatform(copy)) PerformCopy(files, copy, uninstall);
}

void MInstallProcessor::PerformCopy(MXMLItem& files, MXMLItem& copy, bool uninstall) {
    const MString directory = copy.GetAttribute("currentpath");
    MProcessOptions options = MakeOptions(copy, directory, uninstall);
    for (const MXMLItem& extension : MXMLSubItems(copy, "extension")) {
        options.sourceExtensions.Add(extension.GetAttribute("src"));
        options.destinationExtensions.Add(extension.GetAttribute("dst"));
    }
    ProcessItems(directory, files, true, options);
    if (uninstall) RemovePassDirectory(copy, directory);
}

void MInstallProcessor::RemovePassDirectory(MXMLItem& pass, const MString& directory) {
    if (OwnsDirectory(pass)) TryRemovingDirectory(directory);
}
