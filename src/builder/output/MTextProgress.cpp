#include "builder/output/MTextProgress.h"

#include "foundation/base/MGuard.h"
#include "foundation/text/MStringFormatter.h"

#include <algorithm>

MTextProgress::MTextProgress(MBuilderOutput& output, int64_t total)
    : output(output), isShown(output.IsProgressShown()), total(std::max<int64_t>(total, 1)) {
    Advance(0);
}

MTextProgress::~MTextProgress() {
    if (isShown) MGuard("MTextProgress", [this] { output.ShowProgress(MString()); });
}

void MTextProgress::Advance(int64_t bytes) {
    done += bytes;
    const bool isLarge = total > INT64_MAX / 100;
    const int64_t percent = std::min<int64_t>(isLarge ? done / (total / 100) : done * 100 / total, 100);
    if (!isShown || percent == shownPercent) return;
    shownPercent = percent;
    Show();
}

void MTextProgress::Show() {
    constexpr int32_t Width = 40;
    const auto filled = static_cast<int32_t>(shownPercent * Width / 100);
    MString bar;
    bar.Append(MChar('#'), filled);
    bar.Append(MChar('.'), Width - filled);
    output.ShowProgress(MFormat("[{0}] {1} %", bar, shownPercent));
}
