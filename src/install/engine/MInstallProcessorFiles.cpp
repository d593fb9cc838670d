#include "foundation/base/MGuard.h"
#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "install/definition/MBundlePath.h"
#include "install/engine/MInstallProcessorItem.h"
#include "install/engine/MInstallRetry.h"
#include "install/presets/MPresetFile.h"
#include "install/registration/MProgramContent.h"

#include <algorithm>

void MInstallProcessor::ProcessFile(const Item& item) {
    // Deleting is so quick that the log would take its time; there its lines are on the disk by the directory.
    if (!item.IsRemoval()) log.Flush();
    Log("Processing file \"", item.path, "\" operation ", item.op);
    if (item.IsRemoval())
        RemoveFile(item);
    else if (item.op == "create" || item.op == "update")
        WriteFile(item);
}

void MInstallProcessor::WriteFile(const Item& item) {
    ShowItem("creating file {0} ({1} of {2})", item.path);
    const MString path = MGetBundlePath(item.path);
    const MString directory = MFile::GetDirectory(path);
    Log("Creating directory ", directory);
    MInstallRetry([&] { MFile::CreatePath(directory); });

    const bool exists = MFile::Exists(path);
    Log(MFormat("File exists = {0}  rewritable = {1}", exists ? 1 : 0, item.rewritable ? 1 : 0));
    if (item.rewritable || !exists)
        RewriteFile(item, path, exists);
    else if (path.Contains("presets."))
        MergePresetFile(item, path);
}

void MInstallProcessor::MergePresetFile(const Item& item, const MString& path) {
    Log("Processing preset file ", path);
    const auto openSource = [&] { return library->OpenItem(&item.element); };
    doneBytes += MMergePresetFile(path, openSource, journal);
    ++itemIndex;
    ShowCopyProgress();
}

void MInstallProcessor::RewriteFile(const Item& item, const MString& path, bool exists) {
    if (exists) {
        Log("Pre-deleting file ", path);
        MInstallRetry([&] { MFile::Delete(path); });
    }
    Log("Rewriting file ", path);
    // The next run leaves a protected file as it finds it: none may stand half written after a kill.
    const MString written = item.rewritable ? path : path + ".unfinished";
    MStdFileStream target;
    if (!OpenTarget(target, written, path, exists)) {
        Log("File not open!");
        return;
    }
    try {
        const bool isProgram = CopyContent(item.element, target);
        ++itemIndex;
        Log("Success, closing the file");
        target.Close();
        if (isProgram) MGuard("MInstallProcessor", [&] { MFile::MakeExecutable(written); });
        if (!item.rewritable) PlaceProtectedFile(written, path);
    } catch (const MException&) {
        Log("Error writing the file");
        log.Flush();
        throw;
    }
}

void MInstallProcessor::PlaceProtectedFile(const MString& written, const MString& path) {
    if (path.Contains("presets.")) MRecordNewPresetFile(path, written, journal);
    MFile::Rename(written, path);
}

bool MInstallProcessor::OpenTarget(MStdFileStream& target, const MString& written, const MString& path,
                                   bool exists) {
    while (true) {
        try {
            target.Open(written, MOpenWrite | MOpenCreate);
            Log("File successfuly created");
            return true;
        } catch (const MException&) {
            // A font that is in use is there already: no reason to bother anyone.
            if (exists && MFile::GetExtension(path) == "ttf") return false;
            const MString question = MTranslate(
                "Could not rewrite file\n\n{0}\n\n Do you want to try again? If you select \"No\", the installation "
                "will abort. If you select ignore, the installation will continue without creating the file.");
            const MRetryAnswer answer = views.AskRetry(MFormat(question, path));
            if (answer == MRetryAnswer::Retry) continue;
            if (answer == MRetryAnswer::Ignore) {
                Log("File could NOT been created. Ignoring.");
                return false;
            }
            Log("File could NOT been created. Terminating.");
            log.Flush();
            throw;
        }
    }
}

bool MInstallProcessor::CopyContent(MXMLItem& element, MStdFileStream& target) {
    const std::unique_ptr<MStream> content = library->OpenItem(&element);
    fileBytes = content->GetSize();
    filePosition = 0;
    Log(MFormat("Writing file {0}", fileBytes));

    bool isProgram = false;
    while (true) {
        ShowCopyProgress();
        const int32_t count = content->Read(buffer.EditBlock(), BufferSize);
        if (count <= 0) return isProgram;
        if (filePosition == 0) isProgram = MIsProgramContent(buffer.GetBlock(), count);
        target.Write(buffer.GetBlock(), count);
        doneBytes += count;
        filePosition += count;
    }
}

void MInstallProcessor::ShowCopyProgress() {
    views.ShowTotalProgress(totalBytes, doneBytes);
    views.ShowFileProgress(fileBytes, filePosition);
}
