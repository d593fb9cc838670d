#include "streams/basic/MConsole.h"

#include "foundation/text/MUnicode.h"
#include "foundation/win32/MWindowsHeader.h"

#include <io.h>

bool MLibraryInternals::WritePlainConsole(std::FILE* file, const MString& text) {
    const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file)));
    DWORD mode;
    if (!GetConsoleMode(handle, &mode)) {
        const std::string encoded = MEncodeUTF8Exact(text);
        return std::fwrite(encoded.data(), 1, encoded.size(), file) == encoded.size();
    }
    if (std::fflush(file) != 0) return false;
    const MWCHARBuffer wide = text.ToWide();
    DWORD written;
    return WriteConsoleW(handle, wide.Get(), static_cast<DWORD>(text.GetLength()), &written, nullptr);
}

bool MIsTerminal(std::FILE* file) {
    DWORD mode;
    return GetConsoleMode(reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file))), &mode) != 0;
}
