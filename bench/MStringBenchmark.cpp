#include "bench/MAllocationCount.h"
#include "bench/MComparison.h"
#include "foundation/text/MString.h"

#include <benchmark/benchmark.h>
#include <string>
#include <utility>

namespace {

constexpr int Repetitions = 1000;
constexpr const char* Literal = "A text that is too long for any string to keep within itself.";

template <class Text>
bool IsLong(Text text) {
    benchmark::DoNotOptimize(text);
    return text == Text(Literal);
}

/// Blocks asked for while texts are made from a literal, copied, passed, compared, moved and assigned.
template <class Text>
int64_t CountAllocations() {
    const int64_t before = MGetAllocationCount();
    for (int i = 0; i < Repetitions; ++i) {
        Text text = Literal;
        Text copy = text;
        benchmark::DoNotOptimize(IsLong(copy));
        Text moved = std::move(copy);
        moved = text;
        benchmark::DoNotOptimize(moved);
    }
    return MGetAllocationCount() - before;
}

MComparison CompareLiterals() {
    MComparison comparison;
    comparison.ours = static_cast<double>(CountAllocations<MString>());
    comparison.reference = static_cast<double>(CountAllocations<std::string>());
    comparison.unit = "allocations";
    comparison.ratio = comparison.ours / comparison.reference;
    comparison.kind = MComparison::Goal::AtMost;
    comparison.goal = 0;
    comparison.note = "counted; std::string is the reference";
    return comparison;
}

[[maybe_unused]] const bool isRegistered = MRegisterComparison("MString from a literal", CompareLiterals);

}  // namespace
