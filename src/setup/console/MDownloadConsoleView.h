#pragma once

#include "setup/console/MConsoleView.h"
#include "setup/console/MInterruption.h"
#include "update/MDownloadView.h"

#include <chrono>

/// A download on standard output: a line for each phase, and some seconds apart one for the statistics; below them
/// on a terminal the percentage. Cancelled by an interruption from the keyboard.
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
