#pragma once

#include "builder/output/MBuilderOutput.h"

#include <cstdint>

/// Shows how far a long work has come, if somebody watches.
class MProgressBar {
public:
    /// `total` in bytes. The output is not owned.
    MProgressBar(MBuilderOutput& output, int64_t total);
    MProgressBar(const MProgressBar&) = delete;
    MProgressBar& operator=(const MProgressBar&) = delete;
    /// Takes the bar away.
    ~MProgressBar();

    void Advance(int64_t bytes);

private:
    void Show();

    MBuilderOutput& output;
    bool isShown;
    int64_t total;
    int64_t done = 0;
    int64_t shownPercent = -1;
};
