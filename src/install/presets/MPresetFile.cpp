#include "install/presets/MPresetFile.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"
#include "install/presets/MPresetMerge.h"
#include "streams/basic/MMemoryStream.h"
#include "streams/basic/MOutputFile.h"
#include "streams/hashes/MMD5Text.h"

namespace {

/// The exchange index of presets that an installation has brought.
constexpr int32_t InstalledIndex = 0;

MString GetDigest(MMemoryStream& content) {
    return MMD5OfBlock(content.GetBuffer().Get(), static_cast<int32_t>(content.GetSize()));
}

void ReadFile(const MString& path, MMemoryStream& content) {
    MStdFileStream file;
    file.Open(path, MOpenRead);
    file.CopyAllToInLargePieces(content);
    content.Rewind();
}

/// The copy comes into being whole before it takes the place of an older one, and the file itself stays.
void MakeBackup(const MString& path) {
    const MString backup = path + "backup";
    if (MFile::IsDirectory(backup)) MFile::DeleteTree(backup);
    MStdFileStream file;
    file.Open(path, MOpenRead);
    MOutputFile copy(backup);
    file.CopyAllToInLargePieces(copy);
    copy.Commit();
}

void WriteResult(const MString& path, MMemoryStream& result) {
    MOutputFile file(path);
    result.Rewind();
    result.CopyAllToInLargePieces(file);
    file.Flush();
    MGuard("Rename current preset as backup", [&] { MakeBackup(path); });
    file.Commit();
}

void Merge(const MString& path, MMemoryStream& existing, MMemoryStream& source, MPresetJournal& journal) {
    const MString sourceDigest = GetDigest(source);
    if (journal.IsMerged(path, sourceDigest, GetDigest(existing))) return;
    MXMLItem target;
    target.Load(existing);
    MXMLItem presets;
    presets.Load(source);
    if (MergePresets(target, presets, InstalledIndex, MMergeReplace, false) == 0) return;

    MMemoryStream result;
    target.Save(result, false, "utf-8");
    journal.Add({path, sourceDigest, GetDigest(result)});
    WriteResult(path, result);
}

}  // namespace

int64_t MMergePresetFile(const MString& path, const MPresetSource& openSource, MPresetJournal& journal) {
    int64_t sourceBytes = 0;
    MGuard("Merge presets", [&] {
        MMemoryStream existing;
        ReadFile(path, existing);
        const std::unique_ptr<MStream> content = openSource();
        sourceBytes = content->GetSize();
        MMemoryStream source;
        content->CopyAllToInLargePieces(source);
        source.Rewind();
        Merge(path, existing, source, journal);
    });
    return sourceBytes;
}

void MRecordNewPresetFile(const MString& path, const MString& written, MPresetJournal& journal) {
    MGuard("Record presets", [&] {
        MMemoryStream content;
        ReadFile(written, content);
        const MString digest = GetDigest(content);
        journal.Add({path, digest, digest});
    });
}
