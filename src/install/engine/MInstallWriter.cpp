#include "install/engine/MInstallWriter.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"
#include "foundation/files/MFileHolders.h"
#include "foundation/files/MProgramFile.h"
#include "install/engine/MInstallRetry.h"
#include "install/presets/MPresetFile.h"
#include "streams/basic/MOutputFile.h"

#include <string_view>

namespace {

MString GetBundlePath(const MString& path) {
    if (!(MFile::GetExtension(path) == "aaxplugin")) return path;
    const bool wide =
        MFile::GetSpecialPath(MSpecialFolderProgramFiles).Contains("x86") && !path.Contains("(x86)");
    const MString contents = MFile::Join(MFile::Join(path, "Contents"), wide ? "x64" : "Win32");
    return MFile::Join(contents, MFile::GetFileName(path));
}

bool HoldsPresets(const MString& path) {
    return path.Contains("presets.");
}

MString MakeQuestion(const MString& path) {
    MString question = MFormat(
        MTranslate("Could not rewrite file\n\n{0}\n\n Do you want to try again? If you select \"No\", the "
                   "installation will abort. If you select ignore, the installation will continue without "
                   "creating the file."),
        path);
    MString holders;
    for (const MString& holder : MFindFileHolders(path))
        holders += holders.IsEmpty() ? holder : ", " + holder;
    if (!holders.IsEmpty())
        question += "\n\n" + MFormat(MTranslate("It is in use by {0}. Please close that first."), holders);
    return question;
}

}  // namespace

MString MDescribeUnmerged(std::span<const MUnmergedPresets> unmerged) {
    MString text =
        MTranslate("The new presets could not be merged into these files, which stay as they are:");
    for (const MUnmergedPresets& presets : unmerged) text += "\n    " + presets.path + ": " + presets.reason;
    return text;
}

void MInstallWriter::Write(MXMLItem& element, const MString& name, bool rewritable,
                           MLargeResourceLibrary& library) {
    progress.ShowItem("creating file {0} ({1} of {2})", name);
    const MString path = GetBundlePath(name);
    const MString directory = MFile::GetDirectory(path);
    progress.Log("Creating directory ", directory);
    MInstallRetry([&] { MFile::CreatePath(directory); });

    const bool exists = MFile::Exists(path);
    progress.Log(MFormat("File exists = {0}  rewritable = {1}", exists ? 1 : 0, rewritable ? 1 : 0));
    if (exists && !rewritable) {
        if (HoldsPresets(path)) Merge(element, path, library);
        return;
    }
    if (exists) {
        progress.Log("Pre-deleting file ", path);
        MInstallRetry([&] { MFile::Delete(path); });
    }
    progress.Log("Rewriting file ", path);
    // The next run leaves a protected file as it finds it: none may stand half written after a kill.
    const MString written = rewritable ? path : path + MOutputFile::UnfinishedSuffix;
    MStdFileStream target;
    if (!OpenTarget(target, written, path, exists)) return progress.Log("File not open!");
    try {
        const bool isProgram = CopyContent(*library.OpenItem(&element), target);
        ++progress.itemIndex;
        progress.installed.CountFile();
        progress.Log("Success, closing the file");
        target.Close();
        if (isProgram) MGuard("MInstallWriter", [&] { MFile::MakeExecutable(written); });
        if (rewritable) return;
        if (HoldsPresets(path)) MRecordNewPresetFile(path, written, journal);
        MFile::Rename(written, path);
    } catch (const MException&) {
        progress.Log("Error writing the file");
        progress.log.Flush();
        throw;
    }
}

void MInstallWriter::Merge(MXMLItem& element, const MString& path, MLargeResourceLibrary& library) {
    progress.Log("Processing preset file ", path);
    const MPresetMergeOutcome outcome = MMergePresetFile(
        path, [&] { return library.OpenItem(&element); }, journal);
    if (!outcome.backup.IsEmpty()) merged.Add({path, outcome.backup});
    if (outcome.failure.IsEmpty())
        progress.installed.CountFile();
    else
        unmerged.Add({path, outcome.failure});
    progress.doneBytes += outcome.sourceBytes;
    ++progress.itemIndex;
    progress.ShowBytes();
}

bool MInstallWriter::OpenTarget(MStdFileStream& target, const MString& written, const MString& path,
                                bool exists) {
    while (true) {
        try {
            target.Open(written, MOpenWrite | MOpenCreate);
            progress.Log("File successfuly created");
            return true;
        } catch (const MException&) {
            // A font that is in use is there already: no reason to bother anyone.
            if (exists && MFile::GetExtension(path) == "ttf") return false;
            const MRetryAnswer answer = progress.views.AskRetry(MakeQuestion(path));
            if (answer == MRetryAnswer::Retry) continue;
            if (answer == MRetryAnswer::Ignore) {
                progress.Log("File could NOT been created. Ignoring.");
                return false;
            }
            progress.Log("File could NOT been created. Terminating.");
            progress.log.Flush();
            throw;
        }
    }
}

bool MInstallWriter::CopyContent(MStream& content, MStdFileStream& target) {
    progress.fileBytes = content.GetSize();
    progress.filePosition = 0;
    progress.Log(MFormat("Writing file {0}", progress.fileBytes));

    bool isProgram = false;
    while (true) {
        progress.ShowBytes();
        const int32_t count = content.Read(buffer.EditBlock(), BufferSize);
        if (count <= 0) return isProgram;
        const auto* const piece = static_cast<const char*>(buffer.GetBlock());
        if (progress.filePosition == 0)
            isProgram = MBeginsProgram(std::string_view(piece, static_cast<size_t>(count)));
        target.Write(piece, count);
        progress.doneBytes += count;
        progress.filePosition += count;
    }
}
