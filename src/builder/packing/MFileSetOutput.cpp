#include "builder/packing/MFileSetOutput.h"

#include "foundation/base/MGuard.h"
#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/files/MFileReplacement.h"

namespace {

constexpr const char* UnfinishedSuffix = ".unfinished";

/// The number of the part that a path is of the set with its index at `output`; 0 if it is none.
int32_t GetPartNumber(const MString& output, const MString& path) {
    const int32_t number = MParseInt32(path.Substring(output.GetLength()));
    if (number < 1 || number > MMultiFileStream::MaximumPartCount) return 0;
    return path.IsExactly(MMultiFileStream::MakePartPath(output, number)) ? number : 0;
}

}  // namespace

MFileSetOutput::MFileSetOutput(const MString& path, int64_t partSize)
    : path(path), directory(path + UnfinishedSuffix), set(std::make_unique<MMultiFileStream>()) {
    if (MFile::Exists(directory)) MFile::DeleteTree(directory);
    MFile::CreateDirectory(directory);
    set->Create(MFile::Join(directory, MFile::GetFileName(path)), partSize);
}

MFileSetOutput::~MFileSetOutput() {
    set = nullptr;
    MGuard("MFileSetOutput", [this] { MFile::DeleteTree(directory); });
}

int32_t MFileSetOutput::Commit() {
    const MString index = MFile::GetFileName(path);
    set->Close();
    // Reading it back shows that the index can name its parts, whatever its own name is.
    set->Open(MFile::Join(directory, index));
    const int32_t count = set->GetPartCount();
    for (int32_t i = 0; i < count; ++i) Prepare(set->GetPartFileName(i));
    Prepare(index);

    if (MFile::Exists(path)) MFile::Delete(path);
    for (int32_t i = 0; i < count; ++i) Place(set->GetPartFileName(i));
    DeletePartsBeyond(count);
    Place(index);
    return count;
}

MList<MString> MFileSetOutput::ListReplaced(const MString& output) {
    MList<MString> paths;
    paths.Add(output);
    paths.Add(output + UnfinishedSuffix);
    const MString directory = MFile::GetDirectory(output);
    if (!MFile::IsDirectory(directory)) return paths;
    const int32_t nameLength = MFile::GetFileName(output).GetLength();
    for (const MFileListEntry& entry : MFile::GetFileList(directory)) {
        const int32_t number = MParseInt32(entry.name.Substring(nameLength));
        if (number < 1 || number > MMultiFileStream::MaximumPartCount) continue;
        paths.Add(MMultiFileStream::MakePartPath(output, number));
    }
    return paths;
}

MString MFileSetOutput::GetPlace(const MString& name) const {
    return MFile::Join(MFile::GetDirectory(path), name);
}

void MFileSetOutput::Prepare(const MString& name) const {
    const MString place = GetPlace(name);
    if (MFile::IsDirectory(place))
        MRaise(MExceptionGeneral, "The output \"{0}\" is a directory. Remove it, or choose another name.",
               place);
    MSyncFile(MFile::Join(directory, name));
}

void MFileSetOutput::Place(const MString& name) const {
    MReplaceFile(MFile::Join(directory, name), GetPlace(name));
}

void MFileSetOutput::DeletePartsBeyond(int32_t count) const {
    for (const MFileListEntry& entry : MFile::GetFileList(MFile::GetDirectory(path))) {
        const MString place = GetPlace(entry.name);
        if (!entry.isDirectory && GetPartNumber(path, place) > count) MFile::Delete(place);
    }
}
