#include "tests/support/MTestProgram.h"

#include "foundation/posix/MNativePath.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <grp.h>
#include <memory>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr uid_t OrdinaryUser = 65534;
constexpr unsigned SecondsToLive = 300;

using TemporaryFile = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

TemporaryFile MakeTemporaryFile() {
    return {std::tmpfile(), std::fclose};
}

std::string ReadAll(std::FILE* file) {
    std::string text;
    char piece[4096];
    std::rewind(file);
    size_t count;
    while ((count = std::fread(piece, 1, sizeof piece, file)) > 0) text.append(piece, count);
    return text;
}

void MoveInto(const std::string& home) {
    setenv("HOME", home.c_str(), 1);
    setenv("TMPDIR", home.c_str(), 1);
    for (const char* variable : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DESKTOP_DIR"})
        unsetenv(variable);
}

void BecomeOrdinaryUser() {
    if (geteuid() == 0 &&
        (setgroups(0, nullptr) != 0 || setgid(OrdinaryUser) != 0 || setuid(OrdinaryUser) != 0))
        _exit(126);
}

[[noreturn]] void BecomeProgram(const std::vector<std::string>& words, const std::string& directory,
                                int output, int errors) {
    dup2(open("/dev/null", O_RDONLY), STDIN_FILENO);
    dup2(output, STDOUT_FILENO);
    dup2(errors, STDERR_FILENO);
    if (chdir(directory.c_str()) != 0) _exit(126);
    alarm(SecondsToLive);
    std::vector<char*> pointers;
    for (const std::string& word : words) pointers.push_back(const_cast<char*>(word.c_str()));
    pointers.push_back(nullptr);
    execv(pointers[0], pointers.data());
    _exit(127);
}

}  // namespace

MProgramResult MRunTestProgram(const MString& program, const MList<MString>& arguments,
                               const MString& directory, const MString& home, bool asOrdinaryUser) {
    std::vector<std::string> words{MNativePath(program)};
    for (const MString& argument : arguments) words.push_back(MNativePath(argument));
    const TemporaryFile output = MakeTemporaryFile();
    const TemporaryFile errors = MakeTemporaryFile();
    const std::string nativeDirectory = MNativePath(directory);
    const std::string nativeHome = MNativePath(home);

    const pid_t child = fork();
    if (child == 0) {
        MoveInto(nativeHome);
        if (asOrdinaryUser) BecomeOrdinaryUser();
        BecomeProgram(words, nativeDirectory, fileno(output.get()), fileno(errors.get()));
    }
    int status = 0;
    waitpid(child, &status, 0);
    const int32_t exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    return {exitCode, ReadAll(output.get()), ReadAll(errors.get())};
}
