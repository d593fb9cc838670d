#include "bench/MPeakMemory.h"

#include "foundation/base/MRaise.h"
#include "foundation/module/MPlatform.h"
#include "foundation/text/MUnicode.h"
#include "tests/support/MTestProgram.h"

#include <cstdio>
#include <cstdlib>
#include <sys/resource.h>

int64_t MMeasurePeakMemory(const MString& program, const MList<MString>& arguments, const MString& home) {
    MList<MString> words;
    words.Add(MPeakMemoryWord);
    words.Add(home);
    words.Add(program);
    for (const MString& argument : arguments) words.Add(argument);
    const MProgramResult result =
        MRunTestProgram(MPlatform::GetModulePath(nullptr), words, home, home, false);
    if (result.exitCode != 0)
        MRaise(MExceptionGeneral, "The program \"{0}\" failed: {1}", program,
               MDecodeUTF8Exact(result.errors));
    return std::atoll(result.output.c_str()) * 1024;
}

int MRunForPeakMemory(int argumentCount, char** arguments) {
    if (argumentCount < 4) return 2;
    const MString home = MDecodeUTF8Exact(arguments[2]);
    const MString program = MDecodeUTF8Exact(arguments[3]);
    MList<MString> words;
    for (int i = 4; i < argumentCount; ++i) words.Add(MDecodeUTF8Exact(arguments[i]));

    const MProgramResult result = MRunTestProgram(program, words, home, home);
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    std::printf("%ld\n", usage.ru_maxrss);
    std::fputs(result.errors.c_str(), stderr);
    return result.exitCode;
}
