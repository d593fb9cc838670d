#include "embedded/MProgramBlocks.h"
#include "foundation/module/MPlatform.h"
#include "foundation/text/MUnicode.h"
#include "setup/MProcessStart.h"

int main(int argumentCount, char** arguments) {
    MPlatform::PrepareProcess();
    MList<MString> words;
    // A command line without words holds the program's own path, which no keyword equals.
    const int first = argumentCount > 1 ? 1 : 0;
    for (int i = first; i < argumentCount; ++i) words.Add(MDecodeUTF8Exact(arguments[i]));
    return MRunSetupProcess(nullptr, words, MGetProgramBlocks());
}
