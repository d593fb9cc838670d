#pragma once

#include "bench/MComparison.h"

#include <benchmark/benchmark.h>

/// Prints comparisons as the rows of one table, in the form of Markdown, each as soon as it is there.
class MComparisonReporter final : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;

    /// Whether there was at least one row, and every one held.
    [[nodiscard]] bool DoAllHold() const { return rowCount > 0 && failureCount == 0; }

private:
    void PrintRow(const Run& run);

    int rowCount = 0;
    int failureCount = 0;
};

/// Puts a comparison where the reporter finds it.
void MStoreComparison(benchmark::State& state, const MComparison& comparison);
