#include "setup/MDataCheck.h"

#include "foundation/base/MGuard.h"
#include "foundation/base/MRaise.h"
#include "streams/hashes/MMD5Text.h"

#include <optional>

namespace {

[[noreturn]] void RaiseCorruptData() {
    MRaise(MExceptionGeneral, "Setup data file is corrupt. Please download it again or contact support.");
}

MString HashWithProgress(const MString& path, MUserDialogs& dialogs) {
    MStdFileStream file;
    file.Open(path, MOpenRead);
    const auto maximum = static_cast<double>(file.GetSize());
    const auto progress = dialogs.OpenProgress(MTranslate("Checking installer integrity..."));
    return MMD5OfStream(file,
                        [&](int64_t done) { progress->SetProgress(maximum, static_cast<double>(done)); });
}

/// The line that the companion file holds, which may be empty; nothing without a companion, or without a line
/// in it.
std::optional<MString> ReadCompanion(const MString& path) {
    std::optional<MString> digest;
    MGuard("No md5 is available.", [&] {
        MStdFileStream companion;
        companion.Open(path + ".md5", MOpenRead);
        digest = companion.LoadRequiredLine();
    });
    return digest;
}

/// The names of the parts that are not as the index tells, a line each.
MString FindCorruptParts(const MMultiFileStream& parts, MUserDialogs& dialogs) {
    const int32_t count = parts.GetPartCount();
    const auto progress = dialogs.OpenProgress(MTranslate("Checking installer integrity..."));
    MString corrupt;
    for (int32_t i = 0; i < count; ++i) {
        if (!parts.IsPartValid(i)) corrupt += (corrupt.IsEmpty() ? "" : "\n") + parts.GetPartFileName(i);
        progress->SetProgress(count, i + 1);
    }
    return corrupt;
}

}  // namespace

bool MCheckDataFile(const MString& path, MUserDialogs& dialogs) {
    const std::optional<MString> expected = ReadCompanion(path);
    if (!expected) return true;
    MString digest;
    try {
        digest = HashWithProgress(path, dialogs);
    } catch (const MException&) {
        RaiseCorruptData();
    }
    if (digest == *expected) return true;
    return dialogs.AskYesNo(MTranslate(
        "We are very sorry, but the installer is corrupt. It is strongly recommended to download it "
        "again.\n\nDo you want to try to install the software anyway?"));
}

void MOpenDataFile(const MString& path, MStdFileStream& file) {
    try {
        file.Open(path, MOpenRead);
    } catch (const MException&) {
        RaiseCorruptData();
    }
}

bool MCheckFileSet(const MString& path, MMultiFileStream& parts, MUserDialogs& dialogs) {
    try {
        parts.Open(path);
        const MString corrupt = FindCorruptParts(parts, dialogs);
        return corrupt.IsEmpty() ||
               dialogs.AskYesNo(MFormat(
                   MTranslate(
                       "We are very sorry, but following files are corrupt:\n {0}\nPlease check your "
                       "internet connection and redownload the corrupt files again.Note that it is highly "
                       "recommended to use a downloader application instead of your browser if you are using "
                       "a problematic browser such as Safari.\n\nDo you want to try to install the software "
                       "anyway?"),
                   corrupt));
    } catch (const MException&) {
        MRaise(
            MExceptionGeneral,
            "Setup data file is corrupt or missing. Please make sure all parts of the installation package "
            "(usually CAB files) are available and present in the same directory as the setup application.");
    }
}
