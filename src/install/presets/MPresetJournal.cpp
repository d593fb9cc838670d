#include "install/presets/MPresetJournal.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MUnicode.h"
#include "streams/basic/MOutputFile.h"
#include "streams/hashes/MMD5Stream.h"

#include <algorithm>

namespace {

constexpr int32_t DigestLength = 2 * MMD5Stream::DigestSize;
constexpr int32_t DigestStep = DigestLength + 1;
constexpr int32_t PathStart = 3 * DigestStep;

std::string FormatRecord(const MPresetMergeRecord& record) {
    return MEncodeUTF8Exact(record.sourceDigest + " " + record.resultDigest + " " + record.beforeDigest +
                            " " + record.path + "\n");
}

}  // namespace

MPresetJournal::MPresetJournal()
    : file(MFile::Join(MFile::GetSpecialPath(MSpecialFolderUserData), "InstallerMerges.txt")) {
    if (MFile::Exists(file)) MGuard("MPresetJournal", [this] { Read(); });
}

void MPresetJournal::Read() {
    MStdFileStream journal;
    journal.Open(file, MOpenRead);
    std::string text(static_cast<size_t>(journal.GetSize()), '\0');
    journal.ReadRequired(text.data(), static_cast<int32_t>(text.size()));
    for (size_t start = 0, end; (end = text.find('\n', start)) != std::string::npos; start = end + 1) {
        const MString line = MDecodeUTF8Exact({text.data() + start, end - start});
        if (line.GetLength() > PathStart)
            records.Add({line.Substring(PathStart), line.Substring(0, DigestLength),
                         line.Substring(DigestStep, DigestLength),
                         line.Substring(2 * DigestStep, DigestLength)});
    }
}

bool MPresetJournal::IsMerged(const MString& path, const MString& sourceDigest, const MString& digest) const {
    return std::ranges::any_of(records, [&](const MPresetMergeRecord& record) {
        return record.path.IsExactly(path) && record.sourceDigest == sourceDigest &&
               record.resultDigest == digest;
    });
}

bool MPresetJournal::IsResult(const MString& path, const MString& digest) const {
    return std::ranges::any_of(records, [&](const MPresetMergeRecord& record) {
        return record.path.IsExactly(path) && record.resultDigest == digest;
    });
}

bool MPresetJournal::IsBefore(const MString& path, const MString& digest) const {
    return std::ranges::any_of(records, [&](const MPresetMergeRecord& record) {
        return record.path.IsExactly(path) && record.beforeDigest == digest;
    });
}

void MPresetJournal::Add(const MPresetMergeRecord& record) {
    records.Add(record);
    Rewrite();
}

void MPresetJournal::Complete() {
    const auto isVisited = [this](const MString& path) {
        return std::ranges::any_of(visited, [&](const MString& other) { return other.IsExactly(path); });
    };
    const int32_t count = records.GetCount();
    for (int32_t i = count - 1; i >= 0; --i)
        if (isVisited(records[i].path)) records.Remove(i);
    visited.Clear();
    if (records.GetCount() == count) return;
    MGuard("MPresetJournal", [this] { records.IsEmpty() ? MFile::Delete(file) : Rewrite(); });
}

void MPresetJournal::Rewrite() const {
    std::string text;
    for (const MPresetMergeRecord& record : records) text += FormatRecord(record);
    MOutputFile journal(file);
    journal.Write(text.data(), static_cast<int32_t>(text.size()));
    journal.Commit();
}
