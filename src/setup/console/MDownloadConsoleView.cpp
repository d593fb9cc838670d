#include "setup/console/MDownloadConsoleView.h"

void MDownloadConsoleView::SetText(const MString& text) {
    if (text.IsExactly(shownText)) return;
    shownText = text;
    console.SetText(text);
}

void MDownloadConsoleView::SetStatistics(const MString& text) {
    constexpr std::chrono::seconds Pause(5);
    const auto now = std::chrono::steady_clock::now();
    if (now - lastStatistics < Pause) return;
    lastStatistics = now;
    MString line = text;
    line.ReplaceChar('\n', ", ");
    console.SetText(line);
}
