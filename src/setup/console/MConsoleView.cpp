#include "setup/console/MConsoleView.h"

#include "foundation/text/MStringFormatter.h"
#include "streams/basic/MConsole.h"

namespace {

const char* const ProgressFormat = "{0; 3} %";
const char* const ProgressEraser = "      ";

}  // namespace

MConsoleView::MConsoleView() : isTerminal(MIsTerminal(stdout)) {}

MConsoleView::~MConsoleView() {
    EraseProgress();
}

void MConsoleView::SetText(const MString& text) {
    if (text.IsEmpty()) return;
    const int32_t percent = shownPercent;
    EraseProgress();
    (void)MWriteConsoleText(stdout, text + "\n");
    if (percent >= 0) ShowPercent(percent);
}

void MConsoleView::SetProgress(double maximum, double value) {
    if (!isTerminal || maximum <= 0) return;
    const auto percent = static_cast<int32_t>(value * 100 / maximum);
    if (percent != shownPercent) ShowPercent(percent);
}

void MConsoleView::EraseProgress() {
    if (shownPercent >= 0) {
        (void)MOverwriteConsoleLine(stdout, ProgressEraser);
        (void)MOverwriteConsoleLine(stdout, MString());
    }
    shownPercent = -1;
}

void MConsoleView::ShowPercent(int32_t percent) {
    shownPercent = percent;
    (void)MOverwriteConsoleLine(stdout, MFormat(ProgressFormat, percent));
    std::fflush(stdout);
}

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
