#include "bench/MComparisonReporter.h"
#include "bench/MPeakMemory.h"

#include <string_view>

/// Exit code 1 if a goal was missed or nothing was measured.
int main(int argumentCount, char** arguments) {
    if (argumentCount > 1 && std::string_view(arguments[1]) == MPeakMemoryWord)
        return MRunForPeakMemory(argumentCount, arguments);
    benchmark::Initialize(&argumentCount, arguments);
    if (benchmark::ReportUnrecognizedArguments(argumentCount, arguments)) return 2;
    MComparisonReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reporter.DoAllHold() ? 0 : 1;
}
