#include "ui/window/win32/MWin32Clipboard.h"

#include "foundation/base/MException.h"
#include "foundation/files/win32/MNativePath.h"
#include "foundation/text/MUnicode.h"
#include "ui/control/windows/MWindowSystem.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace {

constexpr int32_t Attempts = 10;
constexpr DWORD AttemptDelay = 20;  // milliseconds

bool IsText(const MString& format) {
    return format.IsExactly(MWindowSystem::TextFormat);
}

UINT GetFormat(const MString& format) {
    return IsText(format) ? CF_UNICODETEXT : RegisterClipboardFormatW(MToWide(format).c_str());
}

/// Movable memory of the system, locked.
class LockedMemory final {
public:
    explicit LockedMemory(HGLOBAL memory) : memory(memory), block(GlobalLock(memory)) {}
    LockedMemory(const LockedMemory&) = delete;
    LockedMemory& operator=(const LockedMemory&) = delete;
    ~LockedMemory() {
        if (block) GlobalUnlock(memory);
    }

    [[nodiscard]] void* Get() const { return block; }

private:
    const HGLOBAL memory;
    void* const block;
};

/// Raises "System memory error occured. ".
HGLOBAL CopyToSystem(const void* data, size_t size) {
    // Memory of no bytes counts as discarded.
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, std::max<size_t>(size, 1));
    if (!memory) MRaise(MExceptionGeneral, "System memory error occured. ");
    const LockedMemory locked(memory);
    if (size > 0) std::memcpy(locked.Get(), data, size);
    return memory;
}

MBuffer ToBuffer(const void* data, size_t size) {
    MBuffer buffer(static_cast<int32_t>(size));
    if (size > 0) std::memcpy(buffer.EditBlock(), data, size);
    return buffer;
}

std::wstring ToSystemText(const MBuffer& data) {
    const std::wstring text = MToWide(
        MDecodeUTF8Exact({static_cast<const char*>(data.GetBlock()), static_cast<size_t>(data.GetSize())}));
    std::wstring native;
    native.reserve(text.size() + text.size() / 16);
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'\n' && (i == 0 || text[i - 1] != L'\r')) native += L'\r';
        native += text[i];
    }
    return native;
}

MBuffer FromSystemText(const wchar_t* text, size_t length) {
    std::wstring plain;
    plain.reserve(length);
    for (size_t i = 0; i < length; ++i)
        if (text[i] != L'\r' || i + 1 == length || text[i + 1] != L'\n') plain += text[i];
    const std::string bytes = MEncodeUTF8Exact(MFromWide(plain.c_str()));
    return ToBuffer(bytes.data(), bytes.size());
}

}  // namespace

MWin32Clipboard::MWin32Clipboard(HWND owner) {
    for (int32_t attempt = 0; !OpenClipboard(owner); ++attempt) {
        if (attempt == Attempts) MRaise(MExceptionGeneral, "Error opening system clipboard. ");
        Sleep(AttemptDelay);
    }
}

MWin32Clipboard::~MWin32Clipboard() {
    CloseClipboard();
}

bool MWin32Clipboard::Has(const MString& format) {
    return IsClipboardFormatAvailable(GetFormat(format));
}

void MWin32Clipboard::Set(const MString& format, const MBuffer& data) {
    const std::wstring text = IsText(format) ? ToSystemText(data) : std::wstring();
    const HGLOBAL memory = IsText(format)
                               ? CopyToSystem(text.c_str(), (text.size() + 1) * sizeof(wchar_t))
                               : CopyToSystem(data.GetBlock(), static_cast<size_t>(data.GetSize()));
    // From then on the memory is the system's.
    if (EmptyClipboard() && SetClipboardData(GetFormat(format), memory)) return;
    GlobalFree(memory);
    MRaise(MExceptionGeneral, "Error accessing clipboard. ");
}

MBuffer MWin32Clipboard::Get(const MString& format) {
    const HANDLE memory = GetClipboardData(GetFormat(format));
    if (!memory) MRaise(MExceptionGeneral, "No data present in clipboard. ");
    const LockedMemory locked(memory);
    if (!locked.Get()) MRaise(MExceptionGeneral, "Error accessing clipboard. ");
    const size_t size = GlobalSize(memory);
    if (!IsText(format)) return ToBuffer(locked.Get(), size);
    const auto* const text = static_cast<const wchar_t*>(locked.Get());
    return FromSystemText(text, wcsnlen(text, size / sizeof(wchar_t)));
}
