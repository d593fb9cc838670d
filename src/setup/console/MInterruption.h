#pragma once

/// While one of these lives, an interruption from the keyboard (Ctrl-C) or a request to end does not end the
/// process but is remembered, so that a long run can stop in good order. A second one ends the process as
/// usual. There is one at a time.
class MInterruption {
public:
    MInterruption();
    MInterruption(const MInterruption&) = delete;
    MInterruption& operator=(const MInterruption&) = delete;
    ~MInterruption();

    [[nodiscard]] bool IsRequested() const;
};
