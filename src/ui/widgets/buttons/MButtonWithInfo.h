#pragma once

#include "ui/widgets/buttons/MButton.h"

/// A button with a caption and a description of what it does, which wraps at its width.
class MButtonWithInfo : public MButton {
public:
    explicit MButtonWithInfo(MControl* parent = nullptr, const MString& name = MString());

    /// Both may have mark-up.
    void SetInfo(const MString& caption, const MString& description);

    [[nodiscard]] MAlignment GetContentAlignment() override { return MAlignLeft; }
};
