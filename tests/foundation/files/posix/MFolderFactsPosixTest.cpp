#include "foundation/files/MFolderFacts.h"
#include "foundation/files/posix/MNativePath.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestText.h"
#include "tests/support/posix/MTestProcess.h"

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

TEST(MFolderFactsPosix, NamesWhoMayWriteWhereAnOrdinaryUserMayNot) {
    EXPECT_FALSE(MFindFolderFacts("/proc").volume.name.IsExactly(MFindFolderFacts("/").volume.name));
    if (geteuid() != 0) GTEST_SKIP() << "needs a second user: run as root";
    const MScratch scratch;
    scratch.WriteFile("closed/inside/file", "x");
    ASSERT_EQ(chmod(MNativePath(scratch.GetPath()).c_str(), 0755), 0);
    ASSERT_EQ(chmod(MNativePath(scratch.Join("closed")).c_str(), 0700), 0);
    const pid_t child = fork();
    if (child == 0) {
        if (setuid(MOrdinaryUser) != 0) _exit(2);
        // What stands in a closed folder cannot be seen from outside.
        for (const auto& [name, folder] : {std::pair("new", ""), std::pair("closed/inside/new", "closed")})
            if (Text(MFindFolderFacts(scratch.Join(name)).fault) !=
                "You may not create files in \"" + Text(scratch.Join(folder)) +
                    "\". Please choose another folder, or have it done by the user root.")
                _exit(1);
        _exit(0);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
}
