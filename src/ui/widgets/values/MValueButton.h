#pragma once

#include "ui/widgets/values/MControlValueVerticalDragging.h"

/// A value as text on a button, which the mouse drags.
class MValueButton : public MControlValueVerticalDragging {
public:
    explicit MValueButton(MControl* parent = nullptr, const MString& name = MString())
        : MControlValueVerticalDragging(parent, name) {
        SetControlType(MControlType::Button);
        Set(MControlFlag::Pressable);
    }
};
