#include "bench/MComparison.h"
#include "foundation/base/MException.h"
#include "foundation/text/MStringFormatter.h"
#include "install/presets/MPresetMerge.h"

#include <memory>

namespace {

constexpr int32_t SmallCount = 5000;
constexpr int32_t LargeCount = 50000;
constexpr int Rounds = 21;

/// A user's file and the one that comes, with as many presets each; every other name is in both.
struct Trees {
    MXMLItem target;
    MXMLItem source;
};

void AddPresets(MXMLItem& item, int32_t count, int32_t step) {
    for (int32_t i = 0; i < count; ++i) {
        MXMLItem& preset = *item.AddSubItem("preset");
        preset.SetAttribute("name", MFormat("Warm room {0}", i * step));
        preset.SetAttribute("maxx", i);
        preset.AddSubItem("Point")->SetAttribute("y", i);
    }
}

std::unique_ptr<Trees> MakeTrees(int32_t count) {
    auto trees = std::make_unique<Trees>();
    AddPresets(trees->target, count, 1);
    AddPresets(trees->source, count, 2);
    return trees;
}

MWork MergeOf(int32_t count, std::unique_ptr<Trees>& trees) {
    return {[count, &trees] { trees = MakeTrees(count); },
            [count, &trees] {
                if (MergePresets(trees->target, trees->source, 0, MMergeReplace, false) != count)
                    MRaise(MExceptionGeneral, "Not every preset was merged.");
            }};
}

/// Speeds are merges by second, so their ratio is how many times longer the large merge takes.
MComparison CompareSizes() {
    std::unique_ptr<Trees> small;
    std::unique_ptr<Trees> large;
    MComparison comparison =
        MCompareSpeeds(Rounds, MClock::Processor, 1, MergeOf(SmallCount, small), MergeOf(LargeCount, large));
    comparison.unit = "merges/s";
    comparison.kind = MComparison::Goal::AtMost;
    comparison.goal = 12;
    comparison.note += "; the reference merges ten times as many";
    return comparison;
}

[[maybe_unused]] const bool isRegistered =
    MRegisterComparison("Merge of 5,000 presets and 50,000", CompareSizes);

}  // namespace
