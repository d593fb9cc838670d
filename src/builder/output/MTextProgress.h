#pragma once

#include "builder/output/MBuilderOutput.h"

#include <cstdint>

/// Shows how far a long work has come, if somebody watches.
class MTextProgress {
public:
    /// `total` in bytes. The output is not owned.
    MTextProgress(MBuilderOutput& output, int64_t total);
    MTextProgress(const MTextProgress&) = delete;
    MTextProgress& operator=(const MTextProgress&) = delete;
    /// Takes the bar away.
    ~MTextProgress();

    void Advance(int64_t bytes);

private:
    void Show();

    MBuilderOutput& output;
    bool isShown;
    int64_t total;
    int64_t done = 0;
    int64_t shownPercent = -1;
};
