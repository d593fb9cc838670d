#include "install/presets/MPresetFile.h"

#include "foundation/base/MGuard.h"
#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/files/MFileReplacement.h"
#include "foundation/text/MUnicode.h"
#include "install/presets/MPresetMerge.h"
#include "streams/basic/MMemoryStream.h"
#include "streams/basic/MOutputFile.h"
#include "streams/hashes/MMD5Text.h"

#include <string>

namespace {

/// The exchange index of presets that an installation has brought.
constexpr int32_t InstalledIndex = 0;

/// What a file begins with while it is being written in its place. No preset file begins so.
constexpr char TornMark = '\0';

MString GetDigest(MMemoryStream& content) {
    return MMD5OfBlock(content.GetBuffer().Get(), static_cast<int32_t>(content.GetSize()));
}

void ReadFile(const MString& path, MMemoryStream& content) {
    MStdFileStream file;
    file.Open(path, MOpenRead);
    file.CopyAllToInLargePieces(content);
    content.Rewind();
}

MString GetBackup(const MString& path) {
    return path + "backup";
}

/// For files in folders where nothing can be created.
MString GetDistantBackup(const MString& path) {
    const std::string folder = MEncodeUTF8Exact(MFile::GetDirectory(path));
    const MString backups = MFile::Join(MFile::GetSpecialPath(MSpecialFolderUserData), "InstallerBackups");
    return MFile::Join(MFile::Join(backups, MMD5OfBlock(folder.data(), static_cast<int32_t>(folder.size()))),
                       MFile::GetFileName(GetBackup(path)));
}

void MakeWay(const MString& backup) {
    if (MFile::IsDirectory(backup)) MFile::DeleteTree(backup);
}

/// The file gets its backup's name as a second one, which needs no space.
void LinkBackup(const MString& path) {
    const MString backup = GetBackup(path);
    const MString link = backup + MOutputFile::UnfinishedSuffix;
    if (MFile::Exists(link)) MFile::Delete(link);
    MLinkFile(path, link);
    MakeWay(backup);
    MReplaceFile(link, backup);
    // Where the one name replaces the other and both are of the same file, the system leaves both.
    if (MFile::Exists(link)) MFile::Delete(link);
}

void CopyBackup(const MString& path, MMemoryStream& existing, const MString& backup) {
    MOutputFile copy(backup);
    copy.CopyOwnership(path);
    existing.Rewind();
    existing.CopyAllToInLargePieces(copy);
    copy.Complete();
    MakeWay(backup);
    copy.Commit();
}

/// Makes a backup that shares no bytes with the file, and gives its path.
MString CopyBackup(const MString& path, MMemoryStream& existing) {
    MString backup = GetBackup(path);
    try {
        CopyBackup(path, existing, backup);
    } catch (const MException&) {
        backup = GetDistantBackup(path);
        MFile::CreatePath(MFile::GetDirectory(backup));
        CopyBackup(path, existing, backup);
    }
    return backup;
}

/// Takes no more space than the file has. What is begun and not completed is seen by its first byte.
void Overwrite(MStdFileStream& file, MMemoryStream& content) {
    file.Rewind();
    file.Write(&TornMark, 1);
    file.Sync();
    content.Seek(1, MSeekOrigin::Begin);
    content.CopyAllToInLargePieces(file);
    file.Truncate();
    file.Sync();
    file.Rewind();
    file.Write(content.GetBuffer().Get(), 1);
    file.Sync();
}

/// The backup in which is what the user had, for a file that came from a merge of this run; empty if there is none.
MString FindFormerBackup(const MPresetMergeRecord& record, const MPresetJournal& journal) {
    if (journal.IsResult(record.path, record.beforeDigest))
        for (const MString& backup : {GetBackup(record.path), GetDistantBackup(record.path)})
            if (MFile::IsFile(backup)) return backup;
    return {};
}

/// Gives the path of the backup, as `Replace` does.
MString WriteInPlace(const MPresetMergeRecord& record, MMemoryStream& existing, MMemoryStream& result,
                     MPresetJournal& journal) {
    MStdFileStream file;
    file.Open(record.path, MOpenWrite);
    file.Reserve(result.GetSize());
    MString backup = FindFormerBackup(record, journal);
    journal.Add(record);
    if (backup.IsEmpty()) backup = CopyBackup(record.path, existing);
    try {
        Overwrite(file, result);
    } catch (const MException&) {
        MGuard("Merge presets", [&] { Overwrite(file, existing); });
        throw;
    }
    return backup;
}

MString Replace(const MPresetMergeRecord& record, MMemoryStream& existing, MMemoryStream& result,
                MPresetJournal& journal) {
    MOutputFile file(record.path);
    file.CopyOwnership(record.path);
    result.Rewind();
    result.CopyAllToInLargePieces(file);
    file.Complete();
    const MString former = FindFormerBackup(record, journal);
    journal.Add(record);
    if (former.IsEmpty() && !MGuard("Rename current preset as backup", [&] { LinkBackup(record.path); }))
        CopyBackup(record.path, existing, GetBackup(record.path));
    if (!MGuard("Merge presets", [&] { file.Commit(); }))
        return WriteInPlace(record, existing, result, journal);
    return former.IsEmpty() ? GetBackup(record.path) : former;
}

/// Reads what a file holds, or what it held before a merge was killed that was writing into it; true for the
/// latter.
bool ReadExisting(const MString& path, MMemoryStream& content, const MPresetJournal& journal) {
    ReadFile(path, content);
    if (content.IsEnd() || *content.GetPointer() != TornMark) return false;
    for (const MString& backup : {GetBackup(path), GetDistantBackup(path)}) {
        if (!MFile::IsFile(backup)) continue;
        content.Reset();
        ReadFile(backup, content);
        if (journal.IsBefore(path, GetDigest(content))) return true;
    }
    MRaise(MExceptionGeneral, "The file \"{0}\" is damaged.", path);
}

/// Gives the path of the backup, empty where nothing was to be changed.
MString Merge(const MString& path, MMemoryStream& source, MPresetJournal& journal) {
    MMemoryStream existing;
    const bool isTorn = ReadExisting(path, existing, journal);
    MPresetMergeRecord record{path, GetDigest(source), MString(), GetDigest(existing)};
    if (journal.IsMerged(path, record.sourceDigest, record.beforeDigest)) return MString();
    MXMLItem target;
    target.Load(existing);
    MMemoryStream former;
    target.Save(former, false, "utf-8");
    MXMLItem presets;
    presets.Load(source);
    // What is torn must be made whole, whatever comes.
    if (MergePresets(target, presets, InstalledIndex, MMergeReplace, false) == 0 && !isTorn) return MString();

    const MRewriteWay way = MFindRewriteWay(path);
    if (way == MRewriteWay::None) MRaise(MExceptionGeneral, "The file \"{0}\" is write-protected.", path);
    MMemoryStream result;
    target.Save(result, false, "utf-8");
    record.resultDigest = GetDigest(result);
    // An installation that is repeated brings nothing new, and must not cost the backup.
    if (!isTorn && record.resultDigest == GetDigest(former)) return MString();
    // What is torn must not become the backup.
    return (way == MRewriteWay::Replace && !isTorn ? Replace : WriteInPlace)(record, existing, result,
                                                                             journal);
}

}  // namespace

MPresetMergeOutcome MMergePresetFile(const MString& path, const MPresetSource& openSource,
                                     MPresetJournal& journal) {
    MPresetMergeOutcome outcome;
    outcome.failure = MTranslate("An error occurred.");
    MGuard("Merge presets", [&] {
        try {
            const std::unique_ptr<MStream> content = openSource();
            outcome.sourceBytes = content->GetSize();
            MMemoryStream source;
            content->CopyAllToInLargePieces(source);
            source.Rewind();
            outcome.backup = Merge(path, source, journal);
            journal.Visit(path);
            outcome.failure = MString();
        } catch (const MException& exception) {
            outcome.failure = exception.GetMessage();
        }
    });
    return outcome;
}

void MRecordNewPresetFile(const MString& path, const MString& written, MPresetJournal& journal) {
    MGuard("Record presets", [&] {
        MMemoryStream content;
        ReadFile(written, content);
        const MString digest = GetDigest(content);
        journal.Visit(path);
        journal.Add({path, digest, digest, digest});
    });
}
