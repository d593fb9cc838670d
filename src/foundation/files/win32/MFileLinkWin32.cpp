#include "foundation/files/MFile.h"
#include "foundation/files/MFileLink.h"
#include "foundation/files/win32/MNativePath.h"
#include "foundation/text/MUnicode.h"
#include "foundation/win32/MWindowsHeader.h"
#include "streams/basic/MStdFileStream.h"

#include <memory>
#include <shlobj.h>

namespace {

struct ReleaseInterface {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <class Interface>
using InterfacePointer = std::unique_ptr<Interface, ReleaseInterface>;

struct FreeItems {
    void operator()(ITEMIDLIST* items) const { CoTaskMemFree(items); }
};
using ItemList = std::unique_ptr<ITEMIDLIST, FreeItems>;

/// COM for this thread, as long as the object lives.
class ComSession {
public:
    ComSession() : isInitialized(SUCCEEDED(CoInitialize(nullptr))) {}
    ComSession(const ComSession&) = delete;
    ComSession& operator=(const ComSession&) = delete;
    ~ComSession() {
        if (isInitialized) CoUninitialize();
    }

private:
    bool isInitialized;
};

ItemList ParseTarget(const MString& target) {
    // The shell would take no name for the desktop.
    if (target.IsEmpty()) return nullptr;
    PIDLIST_ABSOLUTE items = nullptr;
    SHParseDisplayName(MNativePath(target).c_str(), nullptr, &items, 0, nullptr);
    return ItemList(items);
}

HRESULT Fill(IShellLinkW& link, const ITEMIDLIST* items, const MString& target, const MString& arguments,
             const MString& description) {
    HRESULT result = link.SetIDList(items);
    if (SUCCEEDED(result) && !arguments.IsEmpty()) result = link.SetArguments(MToWide(arguments).c_str());
    if (SUCCEEDED(result)) result = link.SetDescription(MToWide(description).c_str());
    const MString directory = MFile::GetDirectory(target);
    return SUCCEEDED(result) ? link.SetWorkingDirectory(MNativePath(directory).c_str()) : result;
}

InterfacePointer<IShellLinkW> CreateShellLink(HRESULT& result) {
    void* created = nullptr;
    result = CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW, &created);
    return InterfacePointer<IShellLinkW>(static_cast<IShellLinkW*>(created));
}

InterfacePointer<IPersistFile> GetFile(IShellLinkW& link, HRESULT& result) {
    void* found = nullptr;
    result = link.QueryInterface(IID_IPersistFile, &found);
    return InterfacePointer<IPersistFile>(static_cast<IPersistFile*>(found));
}

HRESULT Save(IShellLinkW& link, const MString& path) {
    HRESULT result;
    const InterfacePointer<IPersistFile> file = GetFile(link, result);
    return file ? file->Save(MNativePath(path).c_str(), TRUE) : result;
}

}  // namespace

MString MShellLinkExtension() {
    return "lnk";
}

MString MInternetLinkExtension() {
    return "url";
}

void MWriteInternetLink(const MString& path, const MString& address, const MString& /*description*/) {
    const std::string text = MEncodeUTF8Exact(MString("[InternetShortcut]\nURL=") + address + "\n");
    MStdFileStream file;
    file.Open(path, MOpenWrite | MOpenCreate);
    file.Write(text.data(), static_cast<int32_t>(text.size()));
    file.Close();
}

bool MWriteShellLink(const MString& path, const MString& target, const MString& arguments,
                     const MString& description) {
    const ComSession session;
    const ItemList items = ParseTarget(target);
    HRESULT result = HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND);
    if (items) {
        const InterfacePointer<IShellLinkW> link = CreateShellLink(result);
        if (link) result = Fill(*link, items.get(), target, arguments, description);
        if (SUCCEEDED(result)) result = Save(*link, path);
    }
    if (FAILED(result)) SetLastError(static_cast<DWORD>(result));
    return SUCCEEDED(result);
}

MString MReadShellLinkDirectory(const MString& path) {
    const ComSession session;
    HRESULT result;
    const InterfacePointer<IShellLinkW> link = CreateShellLink(result);
    if (!link) return {};
    const InterfacePointer<IPersistFile> file = GetFile(*link, result);
    wchar_t directory[INFOTIPSIZE] = {};
    if (!file || FAILED(file->Load(MNativePath(path).c_str(), STGM_READ)) ||
        FAILED(link->GetWorkingDirectory(directory, INFOTIPSIZE)))
        return {};
    return MFile::Normalize(MFromWide(directory));
}
