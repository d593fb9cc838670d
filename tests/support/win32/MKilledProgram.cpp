#include "tests/support/MKilledProgram.h"

#include "tests/support/win32/MTestProcess.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <gtest/gtest.h>
#include <map>

namespace {

/// The stack at the start of a call of the system: the return address, then the arguments from the first on.
using Stack = std::array<DWORD, 10>;

struct WatchedCall {
    const char* name;
    bool (*changesFile)(const Stack& stack);
    DWORD argumentCount;
    bool (*takesSpace)(const Stack& stack);
};

constexpr DWORD OpenDisposition = 1;  // FILE_OPEN: what is missing is not created

bool IsForChange(DWORD access) {
    return (access & (GENERIC_WRITE | GENERIC_ALL | DELETE | FILE_WRITE_DATA | FILE_APPEND_DATA |
                      FILE_WRITE_ATTRIBUTES)) != 0;
}

/// Each a FILE_INFORMATION_CLASS: times and attributes, name, link, deletion, allocation, length.
constexpr DWORD Changes[] = {4, 10, 11, 13, 19, 20, 64, 65};

constexpr auto Always = [](const Stack&) { return true; };
constexpr auto Never = [](const Stack&) { return false; };

/// Each a FILE_INFORMATION_CLASS: link and length.
constexpr DWORD Growths[] = {11, 20};

/// What all changes of files and of the registry come down to, whoever asks for them.
constexpr WatchedCall WatchedCalls[] = {
    {"NtCreateFile", [](const Stack& stack) { return IsForChange(stack[2]) || stack[8] != OpenDisposition; },
     11, [](const Stack& stack) { return stack[8] != OpenDisposition; }},
    {"NtOpenFile", [](const Stack& stack) { return IsForChange(stack[2]); }, 6, Never},
    {"NtSetInformationFile", [](const Stack& stack) { return std::ranges::count(Changes, stack[5]) > 0; }, 5,
     [](const Stack& stack) { return std::ranges::count(Growths, stack[5]) > 0; }},
    {"NtWriteFile", Always, 9, Always},
    {"NtFlushBuffersFile", Always, 2, Always},
    {"NtDeleteFile", Always, 1, Never},
    {"NtCreateKey", Always, 7, Never},
    {"NtSetValueKey", Always, 6, Never},
    {"NtDeleteKey", Always, 1, Never},
    {"NtDeleteValueKey", Always, 2, Never},
};

/// Each call starts with the instruction "mov eax, number", of one byte and the number.
constexpr BYTE LoadNumberCode = 0xB8;
constexpr DWORD LoadNumberSize = 1 + sizeof(DWORD);
constexpr BYTE BreakpointCode = 0xCC;

constexpr DWORD DiskFullStatus = 0xC000007F;

/// Debugs a program, with a breakpoint at the start of each watched call.
class Watcher {
public:
    Watcher(const MTestProcess& process, int32_t fatalOperation, MDisturbance disturbance)
        : process(process), fatalOperation(fatalOperation), disturbance(disturbance) {}

    /// To the program's end.
    MKilledProgramResult Watch() {
        DEBUG_EVENT event{};
        while (event.dwDebugEventCode != EXIT_PROCESS_DEBUG_EVENT) {
            if (!WaitForDebugEvent(&event, MTestProcess::MillisecondsToLive)) {
                ADD_FAILURE() << "The program does not come to an end.";
                TerminateProcess(process.GetHandle(), static_cast<UINT>(-1));
                break;
            }
            DWORD answer = DBG_CONTINUE;
            if (event.dwDebugEventCode == CREATE_PROCESS_DEBUG_EVENT)
                CloseHandle(event.u.CreateProcessInfo.hFile);
            if (event.dwDebugEventCode == LOAD_DLL_DEBUG_EVENT) CloseHandle(event.u.LoadDll.hFile);
            if (event.dwDebugEventCode == EXCEPTION_DEBUG_EVENT) answer = HandleException(event);
            ContinueDebugEvent(event.dwProcessId, event.dwThreadId, answer);
        }
        WaitForSingleObject(process.GetHandle(), MTestProcess::MillisecondsToLive);
        result.program = process.GetResult();
        return result;
    }

private:
    [[nodiscard]] DWORD HandleException(const DEBUG_EVENT& event) {
        const EXCEPTION_RECORD& exception = event.u.Exception.ExceptionRecord;
        const auto address = reinterpret_cast<DWORD>(exception.ExceptionAddress);
        if (exception.ExceptionCode == EXCEPTION_BREAKPOINT && breakpoints.empty()) {
            // The first one is the system's own, reached when all libraries are loaded.
            PlaceBreakpoints();
            return DBG_CONTINUE;
        }
        const auto breakpoint = breakpoints.find(address);
        if (exception.ExceptionCode != EXCEPTION_BREAKPOINT || breakpoint == breakpoints.end())
            return DBG_EXCEPTION_NOT_HANDLED;
        const HANDLE thread = OpenThread(THREAD_ALL_ACCESS, FALSE, event.dwThreadId);
        CONTEXT context{};
        context.ContextFlags = CONTEXT_CONTROL | CONTEXT_INTEGER;  // NOLINT(misc-redundant-expression)
        GetThreadContext(thread, &context);
        if (!DisturbCall(*breakpoint->second.call, context)) {
            // Does what the instruction does whose place the breakpoint has taken.
            context.Eax = breakpoint->second.number;
            context.Eip = address + LoadNumberSize;
        }
        SetThreadContext(thread, &context);
        CloseHandle(thread);
        return DBG_CONTINUE;
    }

    void PlaceBreakpoints() {
        // The library lies at the same address in every process.
        const HMODULE library = GetModuleHandleW(L"ntdll.dll");
        for (const WatchedCall& call : WatchedCalls) {
            auto* const code = reinterpret_cast<BYTE*>(GetProcAddress(library, call.name));
            ASSERT_TRUE(code && *code == LoadNumberCode) << call.name;
            DWORD number;
            std::memcpy(&number, code + 1, sizeof number);
            breakpoints[reinterpret_cast<DWORD>(code)] = {&call, number};
            EXPECT_TRUE(WriteProcessMemory(process.GetHandle(), code, &BreakpointCode, 1, nullptr))
                << call.name;
        }
        FlushInstructionCache(process.GetHandle(), nullptr, 0);
    }

    /// True if the call has returned without having been made.
    bool DisturbCall(const WatchedCall& call, CONTEXT& context) {
        Stack stack{};
        ReadProcessMemory(process.GetHandle(), reinterpret_cast<void*>(context.Esp), stack.data(),
                          sizeof stack, nullptr);
        if (!call.changesFile(stack) || process.IsOutput(reinterpret_cast<HANDLE>(stack[1]))) return false;
        ++result.operationCount;
        if (fatalOperation == 0 || result.operationCount < fatalOperation) return false;
        if (disturbance == MDisturbance::Kill)
            result.isKilled = TerminateProcess(process.GetHandle(), static_cast<UINT>(-1)) != FALSE;
        if (disturbance == MDisturbance::Kill || !call.takesSpace(stack)) return false;
        context.Eax = DiskFullStatus;
        context.Eip = stack[0];
        context.Esp += (1 + call.argumentCount) * sizeof(DWORD);
        return true;
    }

    struct Breakpoint {
        const WatchedCall* call;
        DWORD number;
    };

    const MTestProcess& process;
    int32_t fatalOperation;
    MDisturbance disturbance;
    std::map<DWORD, Breakpoint> breakpoints;  ///< by address
    MKilledProgramResult result;
};

}  // namespace

MKilledProgramResult MRunKilledProgram(const MString& program, const MList<MString>& arguments,
                                       const MString& directory, const MString& /*home*/,
                                       int32_t fatalOperation, MDisturbance disturbance) {
    const MTestProcess process(program, arguments, directory, DEBUG_ONLY_THIS_PROCESS);
    if (!process.GetHandle()) {
        ADD_FAILURE() << "The system does not let this test watch the program that it starts.";
        return {};
    }
    return Watcher(process, fatalOperation, disturbance).Watch();
}
