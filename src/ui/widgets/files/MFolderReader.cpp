#include "ui/widgets/files/MFolderReader.h"

#include "foundation/base/MException.h"
#include "foundation/files/MFile.h"
#include "ui/widgets/files/MNamePatterns.h"

#include <algorithm>
#include <utility>

namespace {

/// Entries with what they are ordered by.
struct SortedEntry {
    MFolderEntry entry;
    int64_t rank = 0;
};

/// The newest and the largest come first. A file that has gone meanwhile is the last one.
int64_t GetRank(const MString& path, MFolderSettings::Order order) {
    try {
        return -(order == MFolderSettings::Order::Time ? MFile::GetFileTime(path) : MFile::GetFileSize(path));
    } catch (const MException&) {
        return 1;
    }
}

bool IsBefore(const SortedEntry& a, const SortedEntry& b) {
    if (a.entry.isDirectory != b.entry.isDirectory) return a.entry.isDirectory;
    if (a.rank != b.rank) return a.rank < b.rank;
    const int32_t difference = a.entry.name.CompareNoCase(b.entry.name);
    return difference != 0 ? difference < 0 : a.entry.name.Compare(b.entry.name) < 0;
}

}  // namespace

void MReadFolder(const MFolderQuestion& question, MFolderContents& contents) {
    const MNamePatterns patterns(question.patterns);
    std::vector<SortedEntry> sorted;
    try {
        if (!question.directory.IsEmpty()) contents.settings.Load(question.directory);
        const MFolderSettings::Order order = question.order.value_or(contents.settings.order);
        contents.settings.order = order;
        for (const MFileListEntry& entry : MFile::GetFileList(question.directory)) {
            if (!question.hasHidden && entry.name.StartsWith(".")) continue;
            if (!entry.isDirectory && (!question.hasFiles || !patterns.Match(entry.name))) continue;
            sorted.push_back({{entry.name, entry.isDirectory}});
            if (!entry.isDirectory && order != MFolderSettings::Order::Name)
                sorted.back().rank = GetRank(MFile::Join(question.directory, entry.name), order);
        }
    } catch (const MException& exception) {
        contents.failure = exception.GetMessage();
    }
    std::sort(sorted.begin(), sorted.end(), IsBefore);
    for (SortedEntry& entry : sorted) contents.entries.push_back(std::move(entry.entry));
}

void MFolderReader::Read(const MFolderQuestion& question) {
    const auto contents = std::make_shared<MFolderContents>();
    contents->directory = question.directory;
    task.Begin([question, contents] { MReadFolder(question, *contents); },
               [tell = onRead, contents] { tell(*contents); });
}
