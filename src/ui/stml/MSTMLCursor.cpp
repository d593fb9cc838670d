#include "ui/stml/MSTMLCursor.h"

#include <algorithm>

void MSTMLCursor::Seek(MSTMLPosition newPosition) {
    const bool isSameRun = run && newPosition.run == position.run;
    position = newPosition;
    if (!isSameRun) EnterRun();
}

MFont* MSTMLCursor::FindFont() const {
    if (runs.empty()) return nullptr;
    MColor unused;
    const size_t nearest = std::min(static_cast<size_t>(position.run), runs.size() - 1);
    return context.GetFont(runs[nearest].look, isInverted, unused);
}

void MSTMLCursor::EnterRun() {
    for (; position.run < static_cast<int32_t>(runs.size()); ++position.run, position.index = 0) {
        run = &runs[static_cast<size_t>(position.run)];
        if (run->object) return;
        font = run->text.IsEmpty() ? nullptr : context.GetFont(run->look, isInverted, color);
        if (font) return;
    }
    run = nullptr;
}
