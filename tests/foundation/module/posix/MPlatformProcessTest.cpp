#include "foundation/module/MPlatform.h"

#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

/// A process that was started carelessly, and what is wrong with it after it has been prepared; 0 if nothing.
static int PrepareChild() {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) close(stream);
    umask(0);
    std::signal(SIGXFSZ, SIG_DFL);
    MPlatform::PrepareProcess();
    // The first file that is opened was standard input, and lines of text went into the next.
    if (open("/", O_RDONLY) <= STDERR_FILENO) return 1;
    if (std::signal(SIGXFSZ, SIG_DFL) != SIG_IGN) return 2;
    if (umask(0) != (geteuid() == 0 ? 022 : 0)) return 3;
    return 0;
}

TEST(MPlatformProcess, IsPreparedForWhoeverStartsIt) {
    const pid_t child = fork();
    if (child == 0) _exit(PrepareChild());
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0) << WEXITSTATUS(status);
}
