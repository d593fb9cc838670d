#include "builder/blobs/MBlobSource.h"

#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"

#include <algorithm>

namespace {

bool IsIdCharacter(MChar character) {
    return character.IsAlphanumeric() || character == MChar('_') || character == MChar('-') ||
           character == MChar('.');
}

/// The id is part of an element's name, so it must not need quotes.
bool IsId(const MString& id) {
    for (int32_t i = 0; i < id.GetLength(); ++i)
        if (!IsIdCharacter(id[i])) return false;
    return !id.IsEmpty();
}

class Collector {
public:
    Collector(const MString& leftOut, MList<MBlobSource>& sources) : leftOut(leftOut), sources(sources) {}

    void CollectDirectory(const MString& directory, const MString& prefix) {
        for (const MFileListEntry& entry : MFile::GetFileList(directory)) {
            const MString path = MFile::Join(directory, entry.name);
            if (!MFile::IsDirectory(path))
                CollectFile(path, prefix);
            else if (MFile::IsLink(path))
                MRaise(
                    MExceptionGeneral,
                    "\"{0}\" is a link to a directory. Put the directory itself there, or delete the link.",
                    path);
            else
                CollectDirectory(path, prefix + entry.name + "_");
        }
    }

private:
    void CollectFile(const MString& path, const MString& prefix) {
        if (path.IsExactly(leftOut)) return;
        if (MFile::IsDevice(path)) MRaise(MExceptionGeneral, "\"{0}\" is no file. Remove it.", path);
        const MString name = MFile::GetBaseName(path);
        const MString id = prefix + name;
        if (name.IsEmpty() || !IsId(id))
            MRaise(
                MExceptionGeneral,
                "\"{0}\" cannot be an item: its id would be \"{1}\". Use letters of English, digits, \"_\", "
                "\"-\" and \".\" in names, with something before the extension.",
                path, id);
        sources.Add({id, path});
    }

    const MString& leftOut;
    MList<MBlobSource>& sources;
};

void RefuseEqualIds(const MList<MBlobSource>& sorted) {
    for (int32_t i = 1; i < sorted.GetCount(); ++i)
        if (sorted[i].id == sorted[i - 1].id)
            MRaise(MExceptionGeneral, "\"{0}\" and \"{1}\" have one id, \"{2}\". Rename one of them.",
                   sorted[i - 1].path, sorted[i].path, sorted[i].id);
}

}  // namespace

MList<MBlobSource> MCollectBlobSources(const MString& folder, const MString& leftOut) {
    if (folder.IsEmpty() || !MFile::IsDirectory(folder))
        MRaise(MExceptionGeneral, "\"{0}\" is no folder. Name the one that holds the files.", folder);
    MList<MBlobSource> sources;
    Collector(leftOut, sources).CollectDirectory(folder, MString());
    std::sort(sources.begin(), sources.end(), [](const MBlobSource& left, const MBlobSource& right) {
        return left.id.CompareNoCase(right.id) < 0;
    });
    RefuseEqualIds(sources);
    return sources;
}
