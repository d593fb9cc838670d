#include "builder/commands/MRunBuilder.h"
#include "foundation/text/MUnicode.h"

#include <csignal>

int main(int argumentCount, char** arguments) {
    // A reader of our lines that goes away gives a failed write, not a signal.
    std::signal(SIGPIPE, SIG_IGN);
    MList<MString> words;
    for (int i = 1; i < argumentCount; ++i) words.Add(MDecodeUTF8Exact(arguments[i]));
    return MRunBuilder(words);
}
