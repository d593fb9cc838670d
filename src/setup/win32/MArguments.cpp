#include "setup/win32/MArguments.h"

#include "foundation/files/win32/MNativePath.h"
#include "foundation/win32/MWindowsHeader.h"

#include <shellapi.h>
#include <string>

MList<MString> MSplitArguments(const wchar_t* commandLine) {
    // The system takes the first word for a program's name, in which a quotation mark holds nothing together,
    // and an empty line for that of the caller.
    std::wstring line = commandLine;
    const bool isEmpty = line.find_first_not_of(L" \t") == std::wstring::npos;
    if (isEmpty)
        line.clear();
    else
        line.insert(0, L"setup ");
    MList<MString> words;
    int count = 0;
    wchar_t** pieces = CommandLineToArgvW(line.c_str(), &count);
    for (int i = isEmpty ? 0 : 1; i < count; ++i) words.Add(MFromWide(pieces[i]));
    LocalFree(pieces);
    return words;
}
