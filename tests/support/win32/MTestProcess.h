#pragma once

#include "foundation/win32/MWindowsHeader.h"
#include "tests/support/MTestProgram.h"

/// A program that runs as `MRunTestProgram` says, but under a limit of time that its watcher sees to.
class MTestProcess {
public:
    static constexpr DWORD MillisecondsToLive = 300000;

    /// `flags` are those of `CreateProcessW`.
    MTestProcess(const MString& program, const MList<MString>& arguments, const MString& directory,
                 DWORD flags);
    MTestProcess(const MTestProcess&) = delete;
    MTestProcess& operator=(const MTestProcess&) = delete;
    ~MTestProcess() {
        // Null handles, of a program that could not be started, are refused without harm.
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }

    /// Null if it could not be started.
    [[nodiscard]] HANDLE GetHandle() const { return process.hProcess; }
    /// Whether a handle of the program is its standard output or standard error.
    [[nodiscard]] bool IsOutput(HANDLE handle) const {
        return handle == output.GetHandle() || handle == errors.GetHandle();
    }
    /// What it has left, when it has ended.
    [[nodiscard]] MProgramResult GetResult() const;

private:
    /// A file that the program inherits and that is gone with its last handle.
    class OutputFile {
    public:
        OutputFile();
        OutputFile(const OutputFile&) = delete;
        OutputFile& operator=(const OutputFile&) = delete;
        ~OutputFile() { CloseHandle(handle); }

        [[nodiscard]] HANDLE GetHandle() const { return handle; }
        [[nodiscard]] std::string ReadAll() const;

    private:
        HANDLE handle;
    };

    OutputFile output;
    OutputFile errors;
    PROCESS_INFORMATION process{};
};
