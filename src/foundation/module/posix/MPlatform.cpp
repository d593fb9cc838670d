#include "foundation/module/MPlatform.h"

#include "foundation/files/posix/MNativePath.h"
#include "foundation/module/MUnhandledException.h"

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dlfcn.h>
#include <exception>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <sys/utsname.h>
#include <unistd.h>

MString MPlatform::GetName() {
    return "linux";
}

MString MPlatform::ExecutableExtension() {
    return "run";
}

bool MPlatform::Is64BitSystem() {
    utsname system;
    return uname(&system) == 0 && std::string_view(system.machine).find("64") != std::string_view::npos;
}

bool MPlatform::HasRootDirectory() {
    return true;
}

MString MPlatform::GetModulePath(void* instance) {
    Dl_info library;
    if (instance && dladdr(instance, &library)) return MPathFromNative(library.dli_fname);
    char path[PATH_MAX];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof(path));
    return length > 0 ? MPathFromNative({path, static_cast<size_t>(length)}) : MString();
}

MString MPlatform::GetPathText(const MString& path) {
    return path;
}

MString MPlatform::TakePathText(const MString& text) {
    return MPathFromNative(MNativePath(text));
}

void MPlatform::PrepareProcess() {
    std::set_terminate(MEndByUnhandledException);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (fcntl(stream, F_GETFD) < 0 && open("/dev/null", O_RDWR) != stream) _exit(EXIT_FAILURE);
    // A reader who goes away, and a file that may not grow any more.
    for (const int failure : {SIGPIPE, SIGXFSZ}) std::signal(failure, SIG_IGN);
    constexpr mode_t OthersWrite = S_IWGRP | S_IWOTH;
    if (geteuid() == 0) umask(umask(OthersWrite) | OthersWrite);
}

void MPlatform::StartSubsystems() {
    // A peer that closes its socket or pipe is a failure of the write, not the end of the process.
    std::signal(SIGPIPE, SIG_IGN);
}

void MPlatform::StopSubsystems() {}

void MPlatform::Sleep(int32_t milliseconds) {
    timespec left = {milliseconds / 1000, milliseconds % 1000 * 1000000L};
    while (nanosleep(&left, &left) != 0 && errno == EINTR) {}
}

MString MSystemErrorText() {
    return errno ? MString::Copy(std::strerror(errno)) : MString("No error description available.");
}
