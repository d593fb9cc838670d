#include "builder/commands/MRunBuilder.h"
#include "foundation/module/MPlatform.h"
#include "foundation/text/MUnicode.h"

int main(int argumentCount, char** arguments) {
    MPlatform::PrepareProcess();
    MList<MString> words;
    for (int i = 1; i < argumentCount; ++i) words.Add(MDecodeUTF8Exact(arguments[i]));
    return MRunBuilder(words);
}
