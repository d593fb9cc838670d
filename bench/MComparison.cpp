#include "bench/MComparison.h"

#include "bench/MComparisonReporter.h"
#include "foundation/base/MException.h"
#include "foundation/text/MUnicode.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <ctime>
#include <utility>

namespace {

double GetSeconds(MClock clock) {
    timespec time{};
    clock_gettime(clock == MClock::Wall ? CLOCK_MONOTONIC : CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double Measure(MClock clock, const MWork& work) {
    if (work.prepare) work.prepare();
    const double start = GetSeconds(clock);
    work.perform();
    return GetSeconds(clock) - start;
}

double GetMedian(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void RunComparison(benchmark::State& state, const std::function<MComparison()>& compare) {
    try {
        for ([[maybe_unused]] auto iteration : state) MStoreComparison(state, compare());
    } catch (const MException& exception) {
        state.SkipWithError(MEncodeUTF8Exact(exception.GetMessage()).c_str());
    }
}

}  // namespace

MComparison MCompareSpeeds(int rounds, MClock clock, double amount, const MWork& ours,
                           const MWork& reference) {
    std::vector<double> ourSpeeds;
    std::vector<double> referenceSpeeds;
    std::vector<double> ratios;
    for (int round = 0; round < rounds; ++round) {
        const bool areOursFirst = round % 2 == 0;
        const double first = Measure(clock, areOursFirst ? ours : reference);
        const double second = Measure(clock, areOursFirst ? reference : ours);
        const auto [ourTime, referenceTime] =
            areOursFirst ? std::pair(first, second) : std::pair(second, first);
        ourSpeeds.push_back(amount / ourTime);
        referenceSpeeds.push_back(amount / referenceTime);
        ratios.push_back(referenceTime / ourTime);
    }
    MComparison comparison;
    comparison.ours = GetMedian(ourSpeeds);
    comparison.reference = GetMedian(referenceSpeeds);
    comparison.ratio = GetMedian(ratios);
    comparison.note = clock == MClock::Wall ? "wall time" : "processor time";
    comparison.note += ", median of " + std::to_string(rounds);
    return comparison;
}

bool MRegisterComparison(const std::string& name, std::function<MComparison()> compare) {
    const auto run = [compare = std::move(compare)](benchmark::State& state) {
        RunComparison(state, compare);
    };
    benchmark::RegisterBenchmark(name.c_str(), run)->Iterations(1);
    return true;
}
