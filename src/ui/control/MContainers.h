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
