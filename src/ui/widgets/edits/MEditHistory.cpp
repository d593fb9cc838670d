#include "ui/widgets/edits/MEditHistory.h"

namespace {

int64_t CountUnits(const MEditStep& step) {
    return int64_t{step.removed.GetLength()} + step.inserted.GetLength();
}

}  // namespace

void MEditHistory::Add(MEditStep step, Kind kind) {
    while (steps.size() > done) {
        units -= CountUnits(steps.back());
        steps.pop_back();
    }
    units += CountUnits(step);
    if (!Join(step, kind)) steps.push_back(std::move(step));
    while (units > MaximumUnits && steps.size() > 1) {
        units -= CountUnits(steps.front());
        steps.pop_front();
    }
    done = steps.size();
    last = kind;
}

bool MEditHistory::Join(const MEditStep& step, Kind kind) {
    if (kind != last || kind == Kind::Other || steps.empty()) return false;
    MEditStep& before = steps.back();
    if (kind == Kind::Typing) {
        const bool isBehind = step.start == before.start + before.inserted.GetLength();
        if (!isBehind || !step.removed.IsEmpty() || step.inserted.FindChar('\n') != MString::NotFound)
            return false;
        before.inserted.Append(step.inserted);
        return true;
    }
    if (step.start + step.removed.GetLength() == before.start) {
        before.removed.Insert(0, step.removed);
        before.start = step.start;
    } else if (step.start == before.start) {
        before.removed.Append(step.removed);
    } else {
        return false;
    }
    return true;
}

void MEditHistory::Clear() {
    steps.clear();
    done = 0;
    units = 0;
    Separate();
}

const MEditStep* MEditHistory::Undo() {
    Separate();
    return done == 0 ? nullptr : &steps[--done];
}

const MEditStep* MEditHistory::Redo() {
    Separate();
    return done == steps.size() ? nullptr : &steps[done++];
}
