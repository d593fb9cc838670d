#pragma once

#include "setup/console/MInterruption.h"
#include "update/MDownloadView.h"

#include <chrono>
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

/// A download on standard output: a line for each phase, and some seconds apart one for the statistics; below
/// them on a terminal the percentage. Cancelled by an interruption from the keyboard.
class MDownloadConsoleView final : public MDownloadView {
public:
    void SetText(const MString& text) override;
    void SetProgress(double maximum, double value) override { console.SetProgress(maximum, value); }
    void SetStatistics(const MString& text) override;
    [[nodiscard]] bool IsCancelled() override { return interruption.IsRequested(); }

private:
    MConsoleView console;
    MInterruption interruption;
    MString shownText;
    std::chrono::steady_clock::time_point lastStatistics;
};
