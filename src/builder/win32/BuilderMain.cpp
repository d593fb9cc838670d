#include "builder/commands/MRunBuilder.h"
#include "foundation/files/win32/MNativePath.h"

int wmain(int argumentCount, wchar_t** arguments) {
    MList<MString> words;
    for (int i = 1; i < argumentCount; ++i) words.Add(MFromWide(arguments[i]));
    return MRunBuilder(words);
}
