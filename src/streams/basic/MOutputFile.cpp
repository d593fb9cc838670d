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

void MOutputFile::Commit(bool isExecutable) {
    Close();
    if (isExecutable) MFile::MakeExecutable(GetFileName());
    MSyncFile(GetFileName());
    MReplaceFile(GetFileName(), path);
    isCommitted = true;
}
