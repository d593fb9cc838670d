#include "builder/definition/MSortedFileList.h"

#include <algorithm>

namespace {

bool IsBelow(const MFileListEntry& left, const MFileListEntry& right) {
    const int32_t length = std::min(left.name.GetLength(), right.name.GetLength());
    for (int32_t i = 0; i < length; ++i)
        if (left.name[i] != right.name[i]) return left.name[i] < right.name[i];
    return left.name.GetLength() < right.name.GetLength();
}

}  // namespace

MList<MFileListEntry> MGetSortedFileList(const MString& directory) {
    MList<MFileListEntry> entries = MFile::GetFileList(directory);
    std::sort(entries.begin(), entries.end(), IsBelow);
    return entries;
}
