#include "streams/basic/MOutputFile.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"
#include "foundation/files/MFileReplacement.h"

MOutputFile::MOutputFile(const MString& path) : path(path) {
    Open(path + UnfinishedSuffix, MOpenWrite | MOpenCreate);
}

MOutputFile::~MOutputFile() {
    if (isCommitted) return;
    MGuard("MOutputFile", [this] {
        if (IsOpen()) Close();
    });
    MGuard("MOutputFile", [this] { MFile::Delete(GetFileName()); });
}

void MOutputFile::CopyOwnership(const MString& from) {
    RequireOpen();
    MCopyOwnership(from, GetFileName(), writeHandle);
}

void MOutputFile::CommitProgram() {
    MFile::MakeExecutable(GetFileName());
    Commit();
}

void MOutputFile::Complete() {
    if (!IsOpen()) return;
    Sync();
    Close();
}

void MOutputFile::Commit() {
    Complete();
    MReplaceFile(GetFileName(), path);
    isCommitted = true;
}
