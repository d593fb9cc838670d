#include "tests/support/MTestProgram.h"

#include "foundation/MProductConstants.h"
#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/files/posix/MNativePath.h"
#include "tests/support/posix/MTestProcess.h"

#include <sys/wait.h>
#include <unistd.h>

MProgramResult MRunTestProgram(const MString& program, const MList<MString>& arguments,
                               const MString& directory, const MString& home, bool asOrdinaryUser) {
    const MTestProcess process(program, arguments, directory, home, asOrdinaryUser, [] {});
    int status = 0;
    waitpid(process.GetId(), &status, 0);
    return process.GetResult(status);
}

void MGiveToTestUser(const MString& path) {
    if (geteuid() == 0 && chown(MNativePath(path).c_str(), MOrdinaryUser, MOrdinaryUser) != 0)
        MRaise(MExceptionGeneral, "Could not give \"{0}\" away.", path);
}

MString MTestUserData(const MString& home) {
    return MFile::Join(home, MString(".local/share/") + MProductMaker);
}

MString MTestPrograms(const MString& home) {
    return MFile::Join(home, ".local/share/applications");
}
