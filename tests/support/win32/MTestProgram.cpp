#include "tests/support/MTestProgram.h"

#include "foundation/files/MSpecialFolders.h"
#include "tests/support/win32/MTestProcess.h"

MProgramResult MRunTestProgram(const MString& program, const MList<MString>& arguments,
                               const MString& directory, const MString& /*home*/, bool /*asOrdinaryUser*/) {
    const MTestProcess process(program, arguments, directory, 0);
    if (!process.GetHandle()) return {};
    if (WaitForSingleObject(process.GetHandle(), MTestProcess::MillisecondsToLive) != WAIT_OBJECT_0) {
        TerminateProcess(process.GetHandle(), static_cast<UINT>(-1));
        WaitForSingleObject(process.GetHandle(), INFINITE);
    }
    return process.GetResult();
}

void MGiveToTestUser(const MString& /*path*/) {}

MString MTestUserData(const MString& /*home*/) {
    return MGetPlatformFolders().GetPath(MSpecialFolderUserData);
}

MString MTestPrograms(const MString& /*home*/) {
    return MGetPlatformFolders().GetPath(MSpecialFolderStartMenuPrograms);
}
