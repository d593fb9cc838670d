#pragma once

#include "ui/control/MContainers.h"
#include "ui/image/MColor.h"

/// A surface in a colour of its own, which may let the ground shine through. May hold controls.
class MColorBox : public MControlContainer {
public:
    explicit MColorBox(MControl* parent = nullptr, const MString& name = MString())
        : MControlContainer(parent, name) {}

    bool Paint(MDrawer& drawer) override;
    [[nodiscard]] MRect GetOpaquePart() override { return {}; }
    [[nodiscard]] bool PaintsNothing() override { return false; }

    MColor color{0, 0, 0, 36};  ///< a level below the ground
};
