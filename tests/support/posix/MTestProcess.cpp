#include "tests/support/posix/MTestProcess.h"

#include "foundation/files/posix/MNativePath.h"

#include <cstddef>
#include <cstdlib>
#include <fcntl.h>
#include <grp.h>
#include <iterator>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr unsigned SecondsToLive = 300;

/// Makes the calls that sync a file succeed at once, where the system allows that. They take most of the time
/// of an installation, and only a machine that loses its power could tell the difference.
void SkipSyncing() {
    sock_filter steps[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_fsync, 1, 0),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_fdatasync, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    const sock_fprog filter{std::size(steps), steps};
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0) prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter);
}

std::string ReadAll(std::FILE* file) {
    std::string text;
    char piece[4096];
    std::rewind(file);
    size_t count;
    while ((count = std::fread(piece, 1, sizeof piece, file)) > 0) text.append(piece, count);
    return text;
}

}  // namespace

MTestProcess::MTestProcess(const MString& program, const MList<MString>& arguments, const MString& directory,
                           const MString& home, bool asOrdinaryUser, void (*prepare)()) {
    std::vector<std::string> words{MNativePath(program)};
    for (const MString& argument : arguments) words.push_back(MNativePath(argument));
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string& word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    const std::string nativeDirectory = MNativePath(directory);
    const std::string nativeHome = MNativePath(home);

    id = fork();
    if (id != 0) return;
    for (const char* variable : {"HOME", "TMPDIR"}) setenv(variable, nativeHome.c_str(), 1);
    for (const char* variable :
         {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DESKTOP_DIR", "DISPLAY"})
        unsetenv(variable);
    if (asOrdinaryUser && geteuid() == 0 &&
        (setgroups(0, nullptr) != 0 || setgid(MOrdinaryUser) != 0 || setuid(MOrdinaryUser) != 0))
        _exit(126);
    SkipSyncing();
    prepare();
    dup2(open("/dev/null", O_RDONLY), STDIN_FILENO);
    dup2(fileno(output.get()), STDOUT_FILENO);
    dup2(fileno(errors.get()), STDERR_FILENO);
    if (chdir(nativeDirectory.c_str()) != 0) _exit(126);
    alarm(SecondsToLive);
    execv(pointers[0], pointers.data());
    _exit(127);
}

MProgramResult MTestProcess::GetResult(int status) const {
    const int32_t exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    return {exitCode, ReadAll(output.get()), ReadAll(errors.get())};
}
