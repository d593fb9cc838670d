#include "foundation/files/MFileHolders.h"

#include "foundation/files/win32/MNativePath.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/win32/MWindowsHeader.h"

#include <restartmanager.h>
#include <vector>

namespace {

/// A session of the Restart Manager, which tells what holds a file. Old systems have none.
class RestartSession {
public:
    RestartSession() : library(LoadLibraryExW(L"rstrtmgr.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32)) {
        const bool isComplete = library && Find(Start, "RmStartSession") && Find(End, "RmEndSession") &&
                                Find(Register, "RmRegisterResources") && Find(GetList, "RmGetList");
        wchar_t key[CCH_RM_SESSION_KEY + 1] = {};
        isOpen = isComplete && Start(&session, 0, key) == ERROR_SUCCESS;
    }
    RestartSession(const RestartSession&) = delete;
    RestartSession& operator=(const RestartSession&) = delete;
    ~RestartSession() {
        if (isOpen) End(session);
        if (library) FreeLibrary(library);
    }

    [[nodiscard]] std::vector<RM_PROCESS_INFO> FindHolders(const std::wstring& path) const {
        const wchar_t* paths[] = {path.c_str()};
        if (!isOpen || Register(session, 1, paths, 0, nullptr, 0, nullptr) != ERROR_SUCCESS) return {};
        std::vector<RM_PROCESS_INFO> holders(16);
        UINT needed = 0;
        auto count = static_cast<UINT>(holders.size());
        DWORD reasons = 0;
        DWORD result = GetList(session, &needed, &count, holders.data(), &reasons);
        if (result == ERROR_MORE_DATA) {
            // More may have come meanwhile: what does not fit then is left out.
            holders.resize(needed);
            count = needed;
            result = GetList(session, &needed, &count, holders.data(), &reasons);
        }
        holders.resize(result == ERROR_SUCCESS ? count : 0);
        return holders;
    }

private:
    template <class Function>
    bool Find(Function& function, const char* name) const {
        function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
        return function != nullptr;
    }

    const HMODULE library;
    decltype(&RmStartSession) Start = nullptr;
    decltype(&RmEndSession) End = nullptr;
    decltype(&RmRegisterResources) Register = nullptr;
    decltype(&RmGetList) GetList = nullptr;
    DWORD session = 0;
    bool isOpen = false;
};

}  // namespace

MList<MString> MFindFileHolders(const MString& path) {
    MList<MString> holders;
    for (const RM_PROCESS_INFO& holder : RestartSession().FindHolders(MNativePath(path)))
        if (holder.Process.dwProcessId != GetCurrentProcessId())
            holders.Add(
                MFormat("{0} ({1})", MFromWide(holder.strAppName), uint64_t{holder.Process.dwProcessId}));
    return holders;
}
