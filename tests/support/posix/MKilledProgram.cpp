#include "tests/support/MKilledProgram.h"

#include "tests/support/posix/MTestProcess.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <string>
#include <sys/ptrace.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr uint64_t WritingCalls[] = {SYS_write,     SYS_pwrite64,  SYS_writev,    SYS_pwritev,
                                     SYS_pwritev2,  SYS_ftruncate, SYS_fallocate, SYS_fsync,
                                     SYS_fdatasync, SYS_fchmod,    SYS_fchown};

constexpr uint64_t ChangingCalls[] = {
    SYS_creat, SYS_truncate, SYS_rename,    SYS_renameat, SYS_renameat2,       SYS_unlink,  SYS_unlinkat,
    SYS_rmdir, SYS_mkdir,    SYS_mkdirat,   SYS_link,     SYS_linkat,          SYS_symlink, SYS_symlinkat,
    SYS_mknod, SYS_mknodat,  SYS_chmod,     SYS_fchmodat, SYS_chown,           SYS_lchown,  SYS_fchownat,
    SYS_utime, SYS_utimes,   SYS_utimensat, SYS_sendfile, SYS_copy_file_range, __NR_openat2};

constexpr uint64_t SpaceTakingCalls[] = {SYS_write,    SYS_pwrite64,  SYS_writev,   SYS_pwritev,
                                         SYS_pwritev2, SYS_fallocate, SYS_fsync,    SYS_fdatasync,
                                         SYS_creat,    SYS_mkdir,     SYS_mkdirat,  SYS_link,
                                         SYS_linkat,   SYS_symlink,   SYS_symlinkat};

constexpr uint64_t OpenForChange = O_WRONLY | O_RDWR | O_CREAT | O_TRUNC;

/// Whether the stopped process is about to change a file.
bool IsBeforeFileOperation(pid_t process) {
    __ptrace_syscall_info info;
    if (ptrace(PTRACE_GET_SYSCALL_INFO, process, sizeof info, &info) <= 0) return false;
    if (info.op != PTRACE_SYSCALL_INFO_ENTRY) return false;
    const auto call = info.entry.nr;
    const auto* const arguments = info.entry.args;
    if (call == SYS_open) return (arguments[1] & OpenForChange) != 0;
    if (call == SYS_openat) return (arguments[2] & OpenForChange) != 0;
    if (std::ranges::count(WritingCalls, call) == 0) return std::ranges::count(ChangingCalls, call) > 0;
    // Standard output and error do not count, nor do the pipes into which a sanitizer looks.
    const std::string path = "/proc/" + std::to_string(process) + "/fd/" + std::to_string(arguments[0]);
    struct stat status;
    return arguments[0] > STDERR_FILENO && stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

/// Makes the call that the stopped process is about to make fail as on a full disk, if it would need space.
void FailForSpace(pid_t process) {
    user_regs_struct registers;
    ptrace(PTRACE_GETREGS, process, nullptr, &registers);
    const bool isCreation = (registers.orig_rax == SYS_open && (registers.rsi & O_CREAT)) ||
                            (registers.orig_rax == SYS_openat && (registers.rdx & O_CREAT));
    if (!isCreation && std::ranges::count(SpaceTakingCalls, registers.orig_rax) == 0) return;
    registers.orig_rax = static_cast<unsigned long long>(-1);
    ptrace(PTRACE_SETREGS, process, nullptr, &registers);
    int status = 0;
    ptrace(PTRACE_SYSCALL, process, nullptr, 0);
    waitpid(process, &status, 0);
    registers.rax = static_cast<unsigned long long>(-ENOSPC);
    ptrace(PTRACE_SETREGS, process, nullptr, &registers);
}

/// In the new process. It stops at the start of its program until the watcher lets it go on.
void BeWatched() {
    // The leak sanitizer does its work as a watcher, and there can be only one.
    const char* options = std::getenv("ASAN_OPTIONS");
    setenv("ASAN_OPTIONS", (std::string(options ? options : "") + ":detect_leaks=0").c_str(), 1);
    if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) _exit(126);
}

/// Lets a stopped process run to its next stop; false at its end.
bool Continue(pid_t process, int signal, int& status) {
    // Fails for a process that was killed: its end is waited for all the same.
    (void)ptrace(PTRACE_SYSCALL, process, nullptr, signal);
    return waitpid(process, &status, 0) == process && WIFSTOPPED(status);
}

}  // namespace

MKilledProgramResult MRunKilledProgram(const MString& program, const MList<MString>& arguments,
                                       const MString& directory, const MString& home, int32_t fatalOperation,
                                       MDisturbance disturbance) {
    constexpr int StopAtCall = SIGTRAP | 0x80;
    const MTestProcess process(program, arguments, directory, home, true, BeWatched);
    MKilledProgramResult result;
    int status = 0;
    waitpid(process.GetId(), &status, 0);
    if (!WIFSTOPPED(status)) {
        ADD_FAILURE() << "The system does not let this test watch the program that it starts.";
        return result;
    }
    ptrace(PTRACE_SETOPTIONS, process.GetId(), nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    int signal = 0;
    while (Continue(process.GetId(), signal, status)) {
        signal = WSTOPSIG(status) == StopAtCall ? 0 : WSTOPSIG(status);
        if (signal != 0 || !IsBeforeFileOperation(process.GetId())) continue;
        ++result.operationCount;
        if (fatalOperation == 0 || result.operationCount < fatalOperation) continue;
        // A process that is killed here does not perform the call any more.
        if (disturbance == MDisturbance::Kill) kill(process.GetId(), SIGKILL);
        if (disturbance == MDisturbance::FullDisk) FailForSpace(process.GetId());
    }
    result.isKilled = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    result.program = process.GetResult(status);
    return result;
}
