#include "bench/MComparisonReporter.h"

#include <cstdio>

namespace {

/// The library carries numbers alone from a benchmark to the reporter, and this is what they lead to.
std::vector<MComparison>& GetStored() {
    static std::vector<MComparison> stored;
    return stored;
}

constexpr const char* IndexCounter = "index";

/// Without the suffix about iterations that the library adds.
std::string GetName(const benchmark::BenchmarkReporter::Run& run) {
    return run.run_name.function_name;
}

}  // namespace

void MStoreComparison(benchmark::State& state, const MComparison& comparison) {
    state.counters[IndexCounter] = static_cast<double>(GetStored().size());
    GetStored().push_back(comparison);
}

bool MComparisonReporter::ReportContext(const Context& context) {
    std::printf("%d processors of %.0f MHz\n\n", context.cpu_info.num_cpus,
                context.cpu_info.cycles_per_second / 1e6);
    std::printf("| name | ours | reference | ratio | goal | holds | how |\n");
    std::printf("|---|---:|---:|---:|---:|---|---|\n");
    std::fflush(stdout);
    return true;
}

void MComparisonReporter::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        ++rowCount;
        if (run.error_occurred) {
            ++failureCount;
            std::printf("| %s | | | | | failed | %s |\n", GetName(run).c_str(), run.error_message.c_str());
        } else {
            PrintRow(run);
        }
        std::fflush(stdout);
    }
}

void MComparisonReporter::PrintRow(const Run& run) {
    const auto index = static_cast<size_t>(run.counters.at(IndexCounter).value);
    const MComparison& row = GetStored().at(index);
    if (!row.Holds()) ++failureCount;
    std::printf("| %s | %.1f %s | %.1f %s | %.3f | %s %g | %s | %s |\n", GetName(run).c_str(), row.ours,
                row.unit.c_str(), row.reference, row.unit.c_str(), row.ratio,
                row.kind == MComparison::Goal::AtLeast ? ">=" : "<=", row.goal, row.Holds() ? "yes" : "NO",
                row.note.c_str());
}
