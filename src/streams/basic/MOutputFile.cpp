#include "streams/basic/MOutputFile.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"
#include "foundation/files/MFileReplacement.h"

MOutputFile::MOutputFile(const MString& path) : path(path) {
    Open(path + ".unfinished", MOpenWrite | MOpenCreate);
}

MOutputFile::~MOutputFile() {
    if (isCommitted) return;
    MGuard("MOutputFile", [this] {
        if (IsOpen()) Close();
    });
    MGuard("MOutputFile", [this] { MFile::Delete(GetFileName()); });
}

void MOutputFile::CommitProgram() {
    MFile::MakeExecutable(GetFileName());
    Commit();
}

void MOutputFile::Commit() {
    Close();
    MSyncFile(GetFileName());
    MReplaceFile(GetFileName(), path);
    isCommitted = true;
}
