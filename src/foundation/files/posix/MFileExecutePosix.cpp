#include "foundation/base/MGuard.h"
#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/files/posix/MNativePath.h"
#include "foundation/module/MPlatform.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr const char* Opener = "xdg-open";
constexpr int ExitCodeOfSignal = 128;

/// Runs in the child, where only what is safe after a fork may be called.
[[noreturn]] void RunProgram(char* const* arguments, int failurePipe) {
    std::signal(SIGPIPE, SIG_DFL);
    execvp(arguments[0], arguments);
    const int error = errno;
    (void)!write(failurePipe, &error, sizeof(error));
    _exit(127);
}

int WaitFor(pid_t process) {
    int status = 0;
    while (waitpid(process, &status, 0) < 0 && errno == EINTR) {}
    return WIFSIGNALED(status) ? ExitCodeOfSignal + WTERMSIG(status) : WEXITSTATUS(status);
}

/// Gives the exit code, 0 without `wait`, or -1 with `errno` set if the program could not be started. That is
/// told through a pipe that a successful start closes. Without `wait` the program is the child of a child
/// that ends at once, so that nobody has to collect it.
int Spawn(const std::vector<std::string>& words, bool wait) {
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);

    int failurePipe[2];
    if (pipe2(failurePipe, O_CLOEXEC) != 0) return -1;
    const pid_t child = fork();
    if (child == 0) {
        if (!wait && fork() != 0) _exit(0);
        RunProgram(arguments.data(), failurePipe[1]);
    }
    int error = child < 0 ? errno : 0;
    close(failurePipe[1]);
    if (child > 0) (void)!read(failurePipe[0], &error, sizeof(error));
    close(failurePipe[0]);
    const int exitCode = child > 0 ? WaitFor(child) : -1;
    if (error == 0) return exitCode;
    errno = error;
    return -1;
}

}  // namespace

int32_t MFile::Execute(const MString& path, const MList<MString>& arguments, const MString& directory,
                       bool wait) {
    if (!directory.IsEmpty()) SetCurrentPath(directory);
    std::vector<std::string> words = {MNativePath(path)};
    for (const MString& argument : arguments) words.push_back(MNativePath(argument));
    int32_t exitCode = Spawn(words, wait);
    if (exitCode >= 0) return exitCode;

    const bool isRefused = errno == EACCES || errno == ENOEXEC;
    const MString reason = MSystemErrorText();
    // What is no program is opened with the program that is there for it, an address too.
    if ((isRefused && IsFile(path)) || path.Contains("://"))
        exitCode = Spawn({Opener, MNativePath(path)}, wait);
    if (exitCode < 0) MRaise(MExceptionGeneral, "Could not execute file \"{0}\". {1}", path, reason);
    return exitCode;
}

void MFile::ExecuteWWW(const MString& url) {
    MGuard("MFile::ExecuteWWW", [&] { (void)Spawn({Opener, MNativePath(url)}, false); });
}
