#pragma once

#include "foundation/views/MProgressView.h"

#include <cstdint>
#include <cstdio>

/// Lines of a run on standard output, and below them, when that is a terminal, the percentage done.
/// A file or a pipe gets the lines only.
class MConsoleView final : public MTextView, public MProgressView {
public:
    MConsoleView();
    /// Leaves the terminal with the cursor on a fresh line.
    ~MConsoleView() override;

    void SetText(const MString& text) override;
    void SetProgress(double maximum, double value) override;

private:
    void EraseProgress();
    void ShowPercent(int32_t percent);

    const bool isTerminal;
    int32_t shownPercent = -1;
};
