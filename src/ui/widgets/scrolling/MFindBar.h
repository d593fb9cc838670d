#pragma once

#include "ui/control/MContainers.h"
#include "ui/widgets/buttons/MButton.h"
#include "ui/widgets/edits/MEdit.h"

#include <functional>

/// A strip with an entry for what is searched and buttons to go from place to place.
class MFindBar final : public MPanel {
public:
    MFindBar(MControl& parent, const MString& name);

    [[nodiscard]] MEdit& GetEdit() { return edit; }
    /// How many places there are, and at which one the user is, from 0 on.
    void ShowCount(int32_t count, int32_t current);

    /// Goes to the next place (1) or to the one before (-1); 0 closes the bar.
    std::function<void(int32_t step)> onStep;

private:
    void OnButton(const MOnClickParams& params);

    MEdit edit{this, "text"};
    MControlContent counter{this, "count"};
    MButton previous{this, "previous"};
    MButton next{this, "next"};
    MButton close{this, "close"};
};
