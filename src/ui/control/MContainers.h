#pragma once

#include "ui/control/MControl.h"

// The controls that only hold others.

/// Groups controls without a look of its own.
class MControlContainer : public MControl {
public:
    explicit MControlContainer(MControl* parent = nullptr, const MString& name = MString())
        : MControl(parent, name) {
        SetControlType(MControlType::Empty);
        Set(MControlFlag::TabStop, false);
    }
};

/// Groups controls that wrap, as texts do: it is as high as they are at the width that it gets.
class MPlasticContainer : public MControlContainer {
public:
    explicit MPlasticContainer(MControl* parent = nullptr, const MString& name = MString())
        : MControlContainer(parent, name) {
        Set(MControlFlag::Plastic);
        // They are asked at a width alone.
        Set(MControlFlag::UseLayouts, false);
        Set(MControlFlag::UseOverlays, false);
    }

    [[nodiscard]] int32_t ComputePlasticSize(int32_t dimension, int32_t otherDimensionSize) override {
        return dimension == 0 ? MeasureLayouts(std::nullopt).x : MeasureLayouts(otherDimensionSize).y;
    }
};

/// A surface for controls, which may have a caption.
class MPanel : public MControl {
public:
    explicit MPanel(MControl* parent = nullptr, const MString& name = MString()) : MControl(parent, name) {
        SetControlType(MControlType::Panel);
        Set(MControlFlag::TabStop, false);
    }

    /// Tells the client control.
    void OnClosed() override {
        if (GetClientControl()) GetClientControl()->OnClosed();
    }
};

class MContainer : public MPanel {
public:
    using MPanel::MPanel;
};

/// The root of a window of its own.
class MWindow : public MControl {
public:
    explicit MWindow(const MString& name = MString(), const MString& caption = MString())
        : MControl(nullptr, name) {
        SetControlType(MControlType::Window);
        SetCaption(caption, MCaptionType::Normal);
        Set(MControlFlag::TabStop, false);
    }
};
