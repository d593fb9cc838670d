#include "builder/commands/MRunBuilder.h"
#include "foundation/files/win32/MNativePath.h"
#include "foundation/module/MPlatform.h"

int wmain(int argumentCount, wchar_t** arguments) {
    MPlatform::PrepareProcess();
    MList<MString> words;
    for (int i = 1; i < argumentCount; ++i) words.Add(MFromWide(arguments[i]));
    return MRunBuilder(words);
}
