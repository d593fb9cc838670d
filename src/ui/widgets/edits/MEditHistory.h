#pragma once

#include "foundation/text/MString.h"
#include "ui/widgets/edits/MTextStops.h"

#include <deque>

/// A part of a text that was replaced by another one.
struct MEditStep {
    int32_t start = 0;
    MString removed;
    MString inserted;
    MTextRange selection;  ///< before; the cursor at `end`, which may be the smaller one
};

/// What was done to a text and can be undone, and what was undone and can be done again. What is typed or deleted
/// character by character is one step, up to the end of a line.
class MEditHistory final {
public:
    enum class Kind { Typing, Deleting, Other };

    void Add(MEditStep step, Kind kind);
    /// The next `Add` begins a step of its own, as after the cursor was moved.
    void Separate() { last = Kind::Other; }
    void Clear();
    /// The step that has to be taken back, which then counts as undone; null if there is none. Valid until the
    /// history changes.
    [[nodiscard]] const MEditStep* Undo();
    /// The step that has to be taken again.
    [[nodiscard]] const MEditStep* Redo();

private:
    /// How much of old text is kept; the last step always is.
    static constexpr int64_t MaximumUnits = int64_t{1} << 23;

    [[nodiscard]] bool Join(const MEditStep& step, Kind kind);

    std::deque<MEditStep> steps;
    size_t done = 0;  ///< of the steps; those behind were undone
    int64_t units = 0;
    Kind last = Kind::Other;
};
