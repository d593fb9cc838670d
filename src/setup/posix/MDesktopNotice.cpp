#include "setup/MDesktopNotice.h"

#include "foundation/MProductConstants.h"
#include "foundation/module/MPlatform.h"
#include "foundation/text/MUnicode.h"

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

/// Ends the child when it takes too long. Whether it has ended by itself and well.
bool WaitFor(pid_t child) {
    constexpr std::chrono::seconds Patience(2);
    constexpr int32_t Slice = 10;
    const auto end = std::chrono::steady_clock::now() + Patience;
    int status = -1;
    while (waitpid(child, &status, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() > end) {
            kill(child, SIGKILL);
            waitpid(child, &status, 0);
            break;
        }
        MPlatform::Sleep(Slice);
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

/// Runs a program of the PATH without a word of its own.
bool RunQuietly(const std::vector<std::string>& words) {
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t streams;
    if (posix_spawn_file_actions_init(&streams) != 0) return false;
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        posix_spawn_file_actions_addopen(&streams, stream, "/dev/null", O_RDWR, 0);
    pid_t child = -1;
    const int error = posix_spawnp(&child, arguments[0], &streams, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&streams);
    return error == 0 && WaitFor(child);
}

/// As gdbus reads a text, whatever is in it.
std::string Quote(const std::string& text) {
    std::string quoted = "\"";
    for (const char character : text) {
        if (character == '"' || character == '\\') quoted += '\\';
        quoted += character;
    }
    return quoted + '"';
}

}  // namespace

void MNotifyDesktop(const MString& title, const MString& text) {
    if (isatty(STDERR_FILENO)) return;
    const std::string heading = MEncodeUTF8Exact(title);
    const std::string body = MEncodeUTF8Exact(text);
    if (RunQuietly({"notify-send", std::string("--app-name=") + MProductMaker, "--", heading, body})) return;
    // The method Notify of the Desktop Notifications Specification.
    (void)RunQuietly({"gdbus", "call", "--session", "--dest=org.freedesktop.Notifications",
                      "--object-path=/org/freedesktop/Notifications",
                      "--method=org.freedesktop.Notifications.Notify", Quote(MProductMaker), "uint32 0",
                      Quote(""), Quote(heading), Quote(body), "@as []", "@a{sv} {}", "int32 -1"});
}
